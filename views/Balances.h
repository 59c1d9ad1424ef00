#pragma once
#include <optional>
#include <string>
#include <vector>

#include "data/NoticedBalances.h"

namespace clb {

class Connection;
class clsDatabase;

/// Stores the balance of every account anew, each from its own rows. An account whose rows add up
/// to more than an amount can be keeps its balance; the others are stored, then its error is
/// thrown. Throws EngineError.
void UpdateBalances(clsDatabase& database);

/// The accounts whose stored balance is not the sum of their rows: what UpdateBalances would
/// change. Every table is read once, whatever the number of accounts. No statement is traced.
/// Throws EngineError, also for a cell that is not an amount.
std::vector<OddBalance> OddBalances(Connection& connection);

/// The same of one account: nothing if its balance is the sum of its rows, if there is no such
/// account, or if its type has no rows.
std::optional<OddBalance> OddBalanceOf(Connection& connection, const std::string& accountID);

}  // namespace clb
