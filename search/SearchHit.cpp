#include "search/SearchHit.h"

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <utility>

#include "engine/rows/Connection.h"
#include "engine/rows/RawSql.h"

namespace clb {
namespace {

using Kind = RawSql::Kind;

Value TextAt(const RawSql::Row& row, int column)
{
    return row.IsNull(column) ? Value() : std::string(row.Text(column));
}

Value LongAt(const RawSql::Row& row, int column)
{
    const std::int64_t number = row.Integer(column);
    return row.KindOf(column) == Kind::Integer && std::in_range<std::int32_t>(number)
               ? Value(static_cast<std::int32_t>(number))
               : Value();
}

Value MoneyAt(const RawSql::Row& row, int column)
{
    return row.KindOf(column) == Kind::Integer ? Value(Money::FromScaled(row.Integer(column)))
                                               : Value();
}

Value DateAt(const RawSql::Row& row, int column)
{
    const auto date =
        row.KindOf(column) == Kind::Text ? Date::FromIso(row.Text(column)) : std::nullopt;
    return date ? Value(*date) : Value();
}

constexpr const char* kHits =
    "SELECT t.rowid, t.Sequence, t.SubSequence, t.AccountID, t.PostDate, t.Description, t.Amount, "
    "t.Category, t.PayeeName, t.CheckID, t.Year, t.Period, (SELECT a.Description FROM Account a "
    "WHERE a.AccountID = t.AccountID ORDER BY a.rowid LIMIT 1) FROM Trans t WHERE t.rowid IN (";

SearchHit HitOf(const RawSql::Row& row)
{
    return {.identity = row.Integer(0),
            .sequence = LongAt(row, 1),
            .subSequence = LongAt(row, 2),
            .account = TextAt(row, 12),
            .accountID = TextAt(row, 3),
            .date = DateAt(row, 4),
            .description = TextAt(row, 5),
            .amount = MoneyAt(row, 6),
            .category = TextAt(row, 7),
            .notes = TextAt(row, 8),
            .checkID = TextAt(row, 9),
            .year = LongAt(row, 10),
            .period = LongAt(row, 11)};
}

}  // namespace

std::vector<SearchHit> ReadHits(Connection& connection, std::span<const std::int64_t> identities)
{
    constexpr std::size_t kTogether = 500;
    std::vector<SearchHit> hits;
    hits.reserve(identities.size());
    RawSql raw(connection);
    const ReadGroup group(connection);
    for (; !identities.empty();
         identities = identities.subspan(std::min(kTogether, identities.size()))) {
        const auto part = identities.first(std::min(kTogether, identities.size()));
        std::string sql = kHits;
        for (const std::int64_t identity : part)
            sql += std::to_string(identity) + ",";
        sql.back() = ')';
        std::unordered_map<std::int64_t, SearchHit> read;
        raw.Select(sql, [&](const RawSql::Row& row) { read.emplace(row.Integer(0), HitOf(row)); });
        for (const std::int64_t identity : part)
            if (const auto found = read.find(identity); found != read.end())
                hits.push_back(std::move(found->second));
    }
    return hits;
}

}  // namespace clb
