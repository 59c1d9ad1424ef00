// The identifiers under which the rows of a statement are stored.
#pragma once
#include <string>

#include "base/HashCounts.h"
#include "statements/form/Statement.h"

namespace clb {

/// Gives each row of one account in one file an identifier of A to Z, 0 to 9 and '-'. Equal files,
/// and a longer file that contains the same days, give the same rows the same identifiers.
class RowIdentifiers {
public:
    /// account: the number that the file gives it, or an empty text.
    explicit RowIdentifiers(std::string account) : account_(std::move(account)) {}

    /// Of a row without an identifier of the bank's: made of account, date, amount, texts and the
    /// row's place among its equals. To be called once for each such row, in the order of the file.
    std::string Make(const StatementRow& row);
    /// The bank's own identifier; hashed if it holds anything else than A to Z, 0 to 9 and '-'.
    static std::string OfBank(const std::string& identifier);
    /// Of a row whose bank's own identifier another row of the account has already.
    [[nodiscard]] std::string Further(const StatementRow& row) const;

private:
    [[nodiscard]] std::string Digest(const StatementRow& row, const std::string& identifier) const;
    [[nodiscard]] std::string Content(const StatementRow& row) const;

    std::string account_;
    HashCounts equals_;  ///< by a hash of the content
};

}  // namespace clb
