// Compares the stored balances of all accounts with the sums of their rows, and recomputes them.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "data/NoticedBalances.h"

namespace clb {

class Connection;
class clsDatabase;

/// Recomputes the balance of every account from the account's own rows. An account whose sum an
/// amount cannot hold keeps its balance; the others are stored first, then its error is thrown.
/// Throws EngineError.
void UpdateBalances(clsDatabase& database);

/// Finds the accounts whose stored balance is not the sum of their rows: those that UpdateBalances
/// would change. Reads every table once if there are many accounts. No query is traced. Throws
/// EngineError, also for a cell that is not an amount.
std::vector<OddBalance> OddBalances(Connection& connection);

/// The same for one account: nothing if its balance is the sum of its rows, if there is no such
/// account, or if its type has no rows.
std::optional<OddBalance> OddBalanceOf(Connection& connection, const std::string& accountID);

}  // namespace clb
