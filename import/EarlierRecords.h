// The transactions that an account had before an import.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/Date.h"
#include "base/Money.h"

namespace clb {

class clsDatabase;

/// The fields that identify a transaction of an account if the bank gave it no identifier.
struct EarlierRecord {
    Date postDate;
    Money amount;
    std::string memo;
    std::string checkID;

    friend auto operator<=>(const EarlierRecord&, const EarlierRecord&) = default;
};

/// The transactions that an account had before an import. A month's transactions are read when the
/// first record of the month is looked up.
class EarlierRecords {
public:
    /// Borrows the database. Rows with the identifier belong to the import and do not count.
    EarlierRecords(clsDatabase& database, std::string accountID, std::string identifier)
        : database_(database), accountID_(std::move(accountID)), identifier_(std::move(identifier))
    {
    }

    /// Returns whether the account had a row with this date, amount and memo, and with this check
    /// number unless it is empty. Throws EngineError.
    bool Contains(const EarlierRecord& sought);

private:
    using Records = std::vector<EarlierRecord>;
    const Records& MonthOf(const Date& day);
    Records Read(Month month);

    clsDatabase& database_;
    std::string accountID_;
    std::string identifier_;
    std::map<Month, Records> months_;  // the records of each are sorted
};

}  // namespace clb
