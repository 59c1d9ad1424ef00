#include "import/EarlierRecords.h"

#include <algorithm>
#include <tuple>

#include "data/clsDatabase.h"

namespace clb {

bool EarlierRecords::Contains(const EarlierRecord& sought)
{
    const Records& records = MonthOf(sought.postDate);
    const auto found = std::lower_bound(records.begin(), records.end(), sought);
    if (found == records.end())
        return false;
    // Records without a check number are sorted before the others.
    return std::tie(found->postDate, found->amount, found->memo) ==
               std::tie(sought.postDate, sought.amount, sought.memo) &&
           (sought.checkID.empty() || found->checkID == sought.checkID);
}

const EarlierRecords::Records& EarlierRecords::MonthOf(const Date& day)
{
    const Month month{day.Year(), day.Month()};
    const auto known = months_.find(month);
    return known != months_.end() ? known->second
                                  : months_.emplace(month, Read(month)).first->second;
}

EarlierRecords::Records EarlierRecords::Read(Month month)
{
    const auto firstDay = [](Month of) { return Date::Of(of.year, of.period, 1); };
    std::string days = " AND PostDate >= #" + firstDay(month).value_or(Date()).ToIso() + "#";
    if (const auto end = firstDay(month.Next()))
        days += " AND PostDate < #" + end->ToIso() + "#";
    Recordset rows;
    database_.Fill(rows,
                   "SELECT PostDate, Amount, PayeeName, CheckID FROM Trans WHERE AccountID = '" +
                       clsDatabase::ToSqlString(accountID_) + "'" + days +
                       " AND NOT Amount IS NULL AND NOT PayeeName IS NULL AND FITID <> '" +
                       identifier_ + "'",
                   true);
    Records records;
    records.reserve(static_cast<std::size_t>(rows.RecordCount()));
    for (; !rows.AtEnd(); rows.MoveNext())
        records.push_back({std::get<Date>(rows.Get(0)), ToMoney(rows.Get(1)), ToText(rows.Get(2)),
                           ToText(rows.Get(3))});
    std::sort(records.begin(), records.end());
    return records;
}

}  // namespace clb
