// Measures the import of statements of today.
#pragma once
#include <vector>

#include "bench/Figure.h"
#include "bench/WorkFolder.h"

namespace clb {

/// Measures "wideofx", "widecsv", "widecamt" and "widemt940": 100,000 transactions as such a file
/// into an account that is known, and the import of the same rows as a file of OFX 1.02 that needs
/// no reader before it, as whole processes in turn.
std::vector<Figure> MeasureWide(const WorkFolder& work, int rounds);

/// Measures "wideofxpeak" and so on: the peak memory of importing such a file of 50 MB, compared
/// with twice the file and 32 MiB.
std::vector<Figure> MeasureWidePeaks(const WorkFolder& work, int rounds);

}  // namespace clb
