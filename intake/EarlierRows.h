// The transactions that an account had before an import.
#pragma once
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/Date.h"
#include "base/Money.h"
#include "intake/RowTexts.h"
#include "statements/form/Statement.h"

namespace clb {

class clsDatabase;

/// What an account had before an import, for finding out which rows of a statement it has already.
/// A month is read when a row of it is looked up.
class EarlierRows {
public:
    /// Borrows the database. Reads the account's identifiers. Throws EngineError.
    EarlierRows(clsDatabase& database, std::string accountID);

    /// Whether the account has a row of this amount within five days whose identifier is one of
    /// these. Throws EngineError.
    bool HasIdentified(const StatementRow& row,
                       std::initializer_list<std::string_view> identifiers);
    /// Whether a row of the account has this identifier, whatever its amount and date.
    [[nodiscard]] bool HasIdentifier(std::string_view identifier) const;
    /// Whether a row of the account has an identifier as RowIdentifiers::Further makes it.
    [[nodiscard]] bool HasFurther() const { return hasFurther_; }
    /// Whether the account has a row that no bank gave an identifier, from a QIF file or typed by
    /// hand, of equal date, amount, cheque number and text. Such a row counts for one row of the
    /// statement only. Throws EngineError.
    bool TakeUnidentified(const StatementRow& row);
    /// Whether the account has a row of equal date, amount and text whose identifier is one of
    /// these. It counts for one row of the statement only. Throws EngineError.
    bool TakeIdentified(const StatementRow& row, const std::vector<std::string>& identifiers);

private:
    struct Known {
        Date date;
        Money amount;
        std::string identifier;
        std::string checkNumber;
        StoredTexts texts;
        bool taken = false;
    };
    using Rows = std::multimap<std::pair<std::int32_t, Money>, Known>;  ///< by day and amount

    bool Take(const StatementRow& row, const std::function<bool(const Known&)>& fits);
    Rows& MonthOf(const Date& day);
    [[nodiscard]] Rows Read(Month month);
    static void AddWhole(const std::vector<Known>& parts, Rows& rows);

    clsDatabase& database_;
    std::string accountID_;
    std::unordered_set<std::uint64_t> identifiers_;  ///< hashes
    bool hasFurther_ = false;
    std::map<Month, Rows> months_;
};

}  // namespace clb
