// Measures the start of the program with its window.
#pragma once
#include <vector>

#include "bench/Figure.h"

namespace clb {

class WorkFolder;

/// Measures the time from the start of the process to the painted window, compared with a bare
/// window: with the delivered database and with large books, and the memory then. Without a display
/// both paint into memory.
std::vector<Figure> MeasureStart(const WorkFolder& work, int rounds);

}  // namespace clb
