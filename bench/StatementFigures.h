#pragma once
#include "bench/Figure.h"

#include <vector>

namespace clb {

class WorkFolder;

/// QIF files in, for the first and for a second time, and exported statements out, with what the
/// export takes of memory.
std::vector<Figure> MeasureQif(const WorkFolder& work, int rounds);
std::vector<Figure> MeasureExport(const WorkFolder& work, int rounds);

}  // namespace clb
