// Measures the import of OFX statements.
#pragma once
#include <vector>

#include "bench/Figure.h"
#include "bench/WorkFolder.h"

namespace clb {

/// Measures "import", "memory" and "again": 100,000 transactions into a fresh folder, as whole
/// processes, ours and the reference in turn; then the same file once more.
std::vector<Figure> MeasureImport(const WorkFolder& work, int rounds);

/// Measures "scaling": the time for a row in a statement of 200,000 and in one of 20,000.
std::vector<Figure> MeasureScaling(const WorkFolder& work, int rounds);

}  // namespace clb
