#include "intake/EarlierRows.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include "base/MoneySum.h"
#include "data/clsDatabase.h"

namespace clb {
namespace {

constexpr std::int32_t kDaysApart = 5;

std::uint64_t HashOf(std::string_view identifier)
{
    return std::hash<std::string_view>()(identifier);
}

/// Whether the identifier is that of the run of a QIF import, which begins with date and time:
/// "2026-03-01 12:00:00 4711", or without the time at midnight.
bool IsRun(const std::string& identifier)
{
    return identifier.size() > 11 && identifier[10] == ' ' &&
           Date::FromIso(std::string_view(identifier).substr(0, 10)).has_value();
}

}  // namespace

EarlierRows::EarlierRows(clsDatabase& database, std::string accountID)
    : database_(database), accountID_(std::move(accountID))
{
    Recordset rows;
    database_.Fill(rows,
                   "SELECT FITID FROM Trans WHERE AccountID = '" +
                       clsDatabase::ToSqlString(accountID_) + "' AND NOT FITID IS NULL",
                   true);
    for (; !rows.AtEnd(); rows.MoveNext()) {
        const std::string identifier = ToText(rows.Get(0));
        hasFurther_ = hasFurther_ || identifier.ends_with("-0");
        identifiers_.insert(HashOf(identifier));
    }
}

bool EarlierRows::HasIdentifier(std::string_view identifier) const
{
    return identifiers_.contains(HashOf(identifier));
}

bool EarlierRows::HasIdentified(const StatementRow& row,
                                std::initializer_list<std::string_view> identifiers)
{
    if (std::none_of(identifiers.begin(), identifiers.end(),
                     [this](std::string_view one) { return HasIdentifier(one); }))
        return false;
    const std::int32_t day = row.date.Days();
    for (std::int32_t at = day - kDaysApart; at <= day + kDaysApart; ++at) {
        Rows& rows = MonthOf(Date::FromDays(at));
        const auto [first, last] = rows.equal_range({at, row.amount});
        for (auto known = first; known != last; ++known)
            if (std::find(identifiers.begin(), identifiers.end(), known->second.identifier) !=
                identifiers.end())
                return true;
    }
    return false;
}

bool EarlierRows::TakeUnidentified(const StatementRow& row)
{
    return Take(row, [&row](const Known& known) {
        return (known.identifier.empty() || IsRun(known.identifier)) &&
               known.checkNumber == row.checkNumber;
    });
}

bool EarlierRows::TakeIdentified(const StatementRow& row,
                                 const std::vector<std::string>& identifiers)
{
    return Take(row, [&identifiers](const Known& known) {
        return std::find(identifiers.begin(), identifiers.end(), known.identifier) !=
               identifiers.end();
    });
}

/// Takes a row of equal date, amount and text that fits; one whose texts agree as a whole rather
/// than one that lacks a text.
bool EarlierRows::Take(const StatementRow& row, const std::function<bool(const Known&)>& fits)
{
    Rows& rows = MonthOf(row.date);
    const auto [first, last] = rows.equal_range({row.date.Days(), row.amount});
    if (first == last)
        return false;
    const RowTexts texts(row);
    Known* part = nullptr;
    for (auto at = first; at != last; ++at) {
        Known& known = at->second;
        if (known.taken || !fits(known))
            continue;
        const TextAgreement agreement = texts.With(known.texts);
        if (agreement == TextAgreement::Whole)
            return known.taken = true;
        if (agreement == TextAgreement::Part && part == nullptr)
            part = &known;
    }
    if (part != nullptr)
        part->taken = true;
    return part != nullptr;
}

EarlierRows::Rows& EarlierRows::MonthOf(const Date& day)
{
    const Month month{day.Year(), day.Month()};
    const auto known = months_.find(month);
    return known != months_.end() ? known->second
                                  : months_.emplace(month, Read(month)).first->second;
}

EarlierRows::Rows EarlierRows::Read(Month month)
{
    const auto firstDay = [](Month of) { return Date::Of(of.year, of.period, 1); };
    std::string days = " AND PostDate >= #" + firstDay(month).value_or(Date()).ToIso() + "#";
    if (const auto end = firstDay(month.Next()))
        days += " AND PostDate < #" + end->ToIso() + "#";
    Recordset found;
    database_.Fill(found,
                   "SELECT PostDate, Amount, FITID, CheckID, Description, PayeeName FROM Trans "
                   "WHERE AccountID = '" +
                       clsDatabase::ToSqlString(accountID_) + "'" + days +
                       " AND NOT Amount IS NULL",
                   true);
    Rows rows;
    std::map<std::pair<std::int32_t, std::string>, std::vector<Known>> pieces;
    for (; !found.AtEnd(); found.MoveNext()) {
        Known known{std::get<Date>(found.Get(0)), ToMoney(found.Get(1)), ToText(found.Get(2)),
                    ToText(found.Get(3)), StoredTexts(ToText(found.Get(4)), ToText(found.Get(5)))};
        if (!known.identifier.empty() && !IsRun(known.identifier))
            pieces[{known.date.Days(), known.identifier}].push_back(known);
        const std::pair key(known.date.Days(), known.amount);
        rows.emplace(key, std::move(known));
    }
    for (auto& [place, parts] : pieces)
        if (parts.size() > 1)
            AddWhole(parts, rows);
    return rows;
}

/// A transaction in pieces has the identifier in each of them; the bank knows it as a whole.
void EarlierRows::AddWhole(const std::vector<Known>& parts, Rows& rows)
{
    MoneySum sum;
    for (const Known& part : parts)
        sum += part.amount;
    Known whole = parts.front();
    try {
        whole.amount = sum.Total();
    } catch (const RuntimeError&) {
        return;  // No statement has such an amount.
    }
    const std::pair key(whole.date.Days(), whole.amount);
    rows.emplace(key, std::move(whole));
}

}  // namespace clb
