#include "data/MonthBudget.h"

#include <utility>

#include "base/MoneySum.h"
#include "base/RuntimeError.h"
#include "engine/rows/RawSql.h"
#include "engine/rows/RowWalk.h"

namespace clb {
namespace {

std::string InMonth(Month month)
{
    return "Year = " + std::to_string(month.year) + " AND Period = " + std::to_string(month.period);
}

/// Whether the cell can be compared with a text. Another program may have stored another type
/// there. Such a cell reads like a text but is equal to none.
bool IsComparable(const WalkedRow& row, std::size_t field)
{
    if (row.IsNull(field))
        return false;
    if (!row.HoldsText(field))
        throw TypeMismatch();
    return true;
}

/// Null counts as 0.
Money AmountOf(const WalkedRow& row, std::size_t field)
{
    return ToMoney(row.Get(field));
}

/// Checks the declared types of the columns, because another program may have declared them
/// differently.
bool AreTexts(RawSql& raw)
{
    const auto isText = [&](const char* table, const char* column) {
        const TableInfo* const found = raw.Find(table);
        const ColumnInfo* const info = found ? found->Find(column) : nullptr;
        return info != nullptr && info->type.type == FieldType::Text;
    };
    return isText("Trans", "Category") && isText("Budget", "Category") &&
           isText("Budget", "CategoryGroup");
}

bool HasCollations(RawSql& raw)
{
    bool found = false;
    raw.Select(
        "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name COLLATE NOCASE IN ('Trans', "
        "'Budget') AND sql LIKE '%COLLATE%'",
        [&](const RawSql::Row&) { found = true; });
    return found;
}

struct RunningSums {
    MoneySum budgeted;
    MoneySum spent;

    [[nodiscard]] MonthBudget::Sums Total() const { return {budgeted.Total(), spent.Total()}; }
};

}  // namespace

bool MonthBudget::Read(Month month)
{
    if (connection_.Traced() || connection_.Locked())
        return false;
    if (held_ && month_ == month && connection_.IsUnchanged(contents_))
        return usable_;
    held_ = false;
    usable_ = false;
    // Asked before reading, so that anything written meanwhile is read the next time.
    contents_ = connection_.ContentsNow();
    try {
        const ReadGroup group(connection_);
        if (ComparesByLetter()) {
            sums_ = ReadSums(month);
            usable_ = true;
        }
    } catch (const RuntimeError&) {
        // The sum's own query will report it.
    }
    month_ = month;
    held_ = true;
    return usable_;
}

bool MonthBudget::ComparesByLetter()
{
    RawSql raw(connection_);
    std::int64_t version = -1;
    raw.Select("PRAGMA schema_version", [&](const RawSql::Row& row) { version = row.Integer(0); });
    if (version == schemaVersion_)
        return byLetter_;
    byLetter_ = AreTexts(raw) && !HasCollations(raw);
    schemaVersion_ = version;
    return byLetter_;
}

MonthBudget::MonthSums MonthBudget::ReadSums(Month month) const
{
    MonthSums sums;
    RunningSums all;
    WalkRows(connection_,
             "SELECT Category, SUM( Amount ) AS TotActual FROM Account INNER JOIN Trans ON "
             "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND " +
                 InMonth(month) + " GROUP BY Category",
             [&](const WalkedRow& row) {
                 const Money spent = AmountOf(row, 1);
                 all.spent += spent;
                 if (IsComparable(row, 0))
                     sums.spent.emplace(row.Text(0), spent);
             });
    std::map<std::string, RunningSums> groups;
    WalkRows(connection_,
             "SELECT Category, CategoryGroup, Amount FROM Budget WHERE " + InMonth(month),
             [&](const WalkedRow& row) {
                 const Money budgeted = AmountOf(row, 2);
                 all.budgeted += budgeted;
                 const bool spendable = IsComparable(row, 0);
                 if (!IsComparable(row, 1))
                     return;
                 RunningSums& group = groups[std::string(row.Text(1))];
                 group.budgeted += budgeted;
                 if (!spendable)
                     return;
                 const auto spent = sums.spent.find(std::string(row.Text(0)));
                 if (spent != sums.spent.end())
                     group.spent += spent->second;
             });
    for (const auto& [name, group] : groups)
        sums.budgeted.emplace(name, group.Total());
    sums.month = all.Total();
    return sums;
}

Money MonthBudget::SpentOn(const std::string& category) const
{
    const auto found = sums_.spent.find(category);
    return found == sums_.spent.end() ? Money() : found->second;
}

MonthBudget::Sums MonthBudget::OfGroup(const std::string& group) const
{
    const auto found = sums_.budgeted.find(group);
    return found == sums_.budgeted.end() ? Sums() : found->second;
}

}  // namespace clb
