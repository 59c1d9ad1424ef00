// Measures the budget view.
#pragma once
#include <string>
#include <vector>

#include "bench/Figure.h"
#include "bench/Ledger.h"
#include "bench/WorkFolder.h"

namespace clb {

/// Measures "budget": the window reloads the budget of a month, 200 lines in 20 groups, and reads
/// every text of every row as if all were visible, in books of 1,000,000 transactions.
std::vector<Figure> MeasureBudget(const WorkFolder& work, int rounds);

/// Budgets shown in a round.
inline constexpr int kBudgetReloads = 24;
/// Shows the budgets of kBudgetReloads months one after the other in each round and reads every
/// text. The reference is one grouped statement. Throws std::runtime_error if they differ.
Rounds MeasureBudgetReloads(const std::string& folder, LedgerSize size, int rounds);

}  // namespace clb
