// The stored balances of all accounts against the rows that they are the sums of.
#pragma once
#include <vector>

#include "data/NoticedBalances.h"

namespace clb {

class clsDatabase;

/// Recomputes the balance of every account from the account's own rows. An account whose sum an
/// amount cannot hold keeps its balance; the others are stored first, then its error is thrown.
/// Throws EngineError.
void UpdateBalances(clsDatabase& database);

/// Finds the accounts whose stored balance is not the sum of their rows: those that UpdateBalances
/// would change. Reads every table once if there are many accounts. No statement is traced. Throws
/// EngineError, also for a cell that is not an amount.
std::vector<OddBalance> OddBalances(clsDatabase& database);

}  // namespace clb
