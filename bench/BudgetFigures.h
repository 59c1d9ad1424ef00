#pragma once
#include <string>
#include <vector>

#include "bench/Figure.h"
#include "bench/Ledger.h"
#include "bench/WorkFolder.h"

namespace clb {

/// "budget": the window reloads the budget of a month, 200 lines in 20 groups, and fetches every
/// text of every row as if all were in sight, in books of 1,000,000 transactions.
std::vector<Figure> MeasureBudget(const WorkFolder& work, int rounds);

/// Showing that many months' budgets one after the other in a round, every text fetched; the
/// reference is one grouped statement. Throws std::runtime_error where they differ.
inline constexpr int kBudgetReloads = 24;
Rounds MeasureBudgetReloads(const std::string& folder, LedgerSize size, int rounds);

}  // namespace clb
