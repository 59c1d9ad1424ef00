#pragma once
#include <cstdint>
#include <string>

#include "base/Date.h"

namespace clb {

class clsDatabase;

/// Notices balances that do not fit their rows before a change of a row stores them anew: the
/// stored figure is the only trace of rows that something else has changed or deleted.
class BalanceWatch {
public:
    /// Before a row of the account is written, with the write lock taken: adds the account to the
    /// list of noticed balances if its balance is not the sum of its rows. Reads the rows once, and
    /// again only if another program has written or another account was looked at since. Returns
    /// whether it has added something. No statement is traced. Throws EngineError.
    bool Look(clsDatabase& database, const std::string& accountID, const Date& now);
    /// What was read and noticed may have been taken back.
    void Forget() { looked_ = false; }

private:
    bool looked_ = false;
    std::string account_;
    std::uint64_t writes_ = 0;
};

/// Adds to the list whatever balance of the book in the folder does not fit its rows. The book is
/// locked only while one that does not is looked at again. Throws EngineError.
void NoteOddBalances(const std::string& folder, const Date& now);

}  // namespace clb
