#include "app/NewRows.h"

#include <algorithm>

#include "app/StatementWords.h"
#include "data/clsDatabase.h"
#include "engine/rows/RawSql.h"

namespace clb {

std::int64_t NewRows::Last(clsDatabase& database)
{
    std::int64_t last = 0;
    RawSql(database.Database())
        .Select("SELECT MAX(rowid) FROM Trans",
                [&last](const RawSql::Row& row) { last = row.Integer(0); });
    return last;
}

void NewRows::AddAfter(clsDatabase& database, std::int64_t last)
{
    const std::int64_t now = Last(database);
    if (now > last)
        ranges_.push_back({last + 1, now});
}

void NewRows::Add(const NewRows& rows)
{
    ranges_.insert(ranges_.end(), rows.ranges_.begin(), rows.ranges_.end());
}

bool NewRows::Has(std::int64_t identity) const
{
    return std::ranges::any_of(ranges_, [identity](const Range& range) {
        return range.first <= identity && identity <= range.last;
    });
}

std::string NewRows::Condition() const
{
    std::string condition;
    for (const Range& range : ranges_)
        condition += (condition.empty() ? "(rowid BETWEEN " : " OR rowid BETWEEN ") +
                     std::to_string(range.first) + " AND " + std::to_string(range.last);
    return condition + ") AND Period BETWEEN 1 AND 12";
}

std::string NewRows::Months(clsDatabase& database) const
{
    if (!Any())
        return {};
    std::string months;
    RawSql(database.Database())
        .Select(
            "SELECT MIN(Year * 12 + Period - 1), MAX(Year * 12 + Period - 1) FROM Trans WHERE " +
                Condition(),
            [&months](const RawSql::Row& row) {
                if (row.IsNull(0))
                    return;
                const auto month = [&row](int column) {
                    const auto number = static_cast<std::int32_t>(row.Integer(column));
                    return Month{number / 12, number % 12 + 1};
                };
                months = statement_words::MonthsText(month(0), month(1));
            });
    return months;
}

std::optional<TouchedRow> NewRows::Latest(clsDatabase& database) const
{
    std::optional<TouchedRow> latest;
    if (Any())
        RawSql(database.Database())
            .Select("SELECT rowid FROM Trans WHERE " + Condition() +
                        " ORDER BY Year DESC, Period DESC, PostDate DESC, rowid DESC LIMIT 1",
                    [&latest](const RawSql::Row& row) {
                        latest = TouchedRow{"Trans", row.Integer(0), true, {}};
                    });
    return latest;
}

}  // namespace clb
