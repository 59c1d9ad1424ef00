#pragma once
#include <vector>

#include "data/NoticedBalances.h"

namespace clb {

class clsDatabase;

/// Stores the balance of every account anew, each from its own rows. An account whose rows add up
/// to more than an amount can be keeps its balance; the others are stored, then its error is
/// thrown. Throws EngineError.
void UpdateBalances(clsDatabase& database);

/// The accounts whose stored balance is not the sum of their rows: what UpdateBalances would
/// change. Every table is read once, whatever the number of accounts. No statement is traced.
/// Throws EngineError, also for a cell that is not an amount.
std::vector<OddBalance> OddBalances(clsDatabase& database);

}  // namespace clb
