#pragma once
#include <vector>

#include "bench/Figure.h"

namespace clb {

class WorkFolder;

/// From the start of the process to the painted window, against a bare window: over the delivered
/// database, over large books, and the memory then. Without a display both paint into memory.
std::vector<Figure> MeasureStart(const WorkFolder& work, int rounds);

}  // namespace clb
