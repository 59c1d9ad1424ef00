#pragma once
#include "bench/Figure.h"
#include "bench/WorkFolder.h"

#include <vector>

namespace clb {

/// "budget": the window reloads the budget of a month, 200 lines in 20 groups, and fetches every
/// text of every row as if all were in sight, in books of 1,000,000 transactions.
std::vector<Figure> MeasureBudget(const WorkFolder& work, int rounds);

}  // namespace clb
