#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/Date.h"
#include "base/Money.h"

namespace clb {

class clsDatabase;

/// What tells one transaction of an account from another where the bank has not named it.
struct HeldRecord {
    Date postDate;
    Money amount;
    std::string memo;
    std::string checkID;

    friend auto operator<=>(const HeldRecord&, const HeldRecord&) = default;
};

/// The transactions that an account held before a run of the import, read month by month as records
/// of those months come.
class HeldRecords {
public:
    /// The database is borrowed. Rows with the run's own identifier do not count.
    HeldRecords(clsDatabase& database, std::string accountID, std::string identifier)
        : database_(database), accountID_(std::move(accountID)), identifier_(std::move(identifier))
    {
    }

    /// Whether the account held a row of this day, amount and memo, and of this check number unless
    /// it is empty. Throws EngineError.
    bool Hold(const HeldRecord& sought);

private:
    using Records = std::vector<HeldRecord>;
    const Records& MonthOf(const Date& day);
    Records Read(Month month);

    clsDatabase& database_;
    std::string accountID_;
    std::string identifier_;
    std::map<Month, Records> months_;  // each sorted
};

}  // namespace clb
