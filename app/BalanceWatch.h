// Finds balances that do not fit their rows.
#pragma once
#include <cstdint>
#include <string>

#include "base/Date.h"

namespace clb {

class clsDatabase;

/// Finds balances that do not fit their rows before a change of a row recomputes them. The stored
/// balance is the only trace of rows that another program has changed or deleted.
class BalanceWatch {
public:
    /// Called before a row of the account is written, with the write lock held. Adds the account to
    /// the list of noticed balances if its balance is not the sum of its rows. Reads the rows again
    /// only if another program has written or another account was checked since the last call.
    /// Returns whether it has added the account. Traces no statement. Throws EngineError.
    bool Check(clsDatabase& database, const std::string& accountID, const Date& now);
    /// Makes the next check read the rows again: what was noticed may have been taken back.
    void Forget() { looked_ = false; }

private:
    bool looked_ = false;
    std::string account_;
    std::uint64_t writes_ = 0;
};

/// Adds all balances of the book in the folder that do not fit their rows to the list of noticed
/// balances. Locks the book only while it checks such a balance again. Throws EngineError.
void NoteOddBalances(const std::string& folder, const Date& now);

}  // namespace clb
