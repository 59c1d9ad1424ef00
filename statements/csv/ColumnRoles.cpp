#include <algorithm>

#include "statements/csv/AmountColumns.h"

namespace clb {

ColumnRoles::ColumnRoles(const CsvTable& table, const std::vector<ColumnFacts>& facts)
    : facts_(facts), names_(table.Names())
{
    for (std::size_t i = 0; i < facts.size(); ++i) {
        roles_.push_back(i < table.Names().size() ? RoleOf(table.Names()[i]) : NamedRole{});
        FitToCells(i);
    }
    DropDoubtfulDates();
    FindOnlyDates();
}

/// A column whose name says something else holds the days if no other column can.
void ColumnRoles::FindOnlyDates()
{
    if (!With(ColumnRole::Date).empty() || !With(ColumnRole::ValueDate).empty())
        return;
    for (std::size_t i = 0; i < facts_.size(); ++i)
        if (facts_[i].filled > 0 && facts_[i].filled == Rows() && facts_[i].dates == Rows()) {
            roles_[i] = {ColumnRole::Date, 6};
            return;
        }
}

/// Six digits can be many things. They are days if no other column is.
void ColumnRoles::DropDoubtfulDates()
{
    const auto isSure = [this](std::size_t i) {
        return roles_[i].rank < 6 || facts_[i].digits < facts_[i].filled || facts_[i].longest != 6;
    };
    const auto dates = With(ColumnRole::Date);
    if (std::any_of(dates.begin(), dates.end(), isSure))
        for (const std::size_t i : dates)
            if (!isSure(i))
                roles_[i] = {};
}

std::vector<std::size_t> ColumnRoles::With(ColumnRole role) const
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < roles_.size(); ++i)
        if (roles_[i].role == role && facts_[i].filled > 0)
            found.push_back(i);
    std::stable_sort(found.begin(), found.end(), [this](std::size_t one, std::size_t other) {
        return roles_[one].rank < roles_[other].rank;
    });
    return found;
}

std::size_t ColumnRoles::Rows() const
{
    std::size_t rows = 0;
    for (const ColumnFacts& facts : facts_)
        rows = std::max(rows, facts.filled);
    return rows;
}

void ColumnRoles::FitToCells(std::size_t column)
{
    if (facts_[column].filled == 0)
        return;
    if (roles_[column].role == ColumnRole::Unknown)
        ByCells(column);
    else
        FitName(column);
}

/// Takes back what the name says if the cells say otherwise.
void ColumnRoles::FitName(std::size_t column)
{
    NamedRole& role = roles_[column];
    const ColumnFacts& facts = facts_[column];
    const bool amounts = facts.AreAmounts();
    switch (role.role) {
        case ColumnRole::Date:
        case ColumnRole::ValueDate:
            if (role.role == ColumnRole::ValueDate && facts.AreCurrencies())
                role = {ColumnRole::Currency, 2};
            else if (!facts.AreDates())
                role = {ColumnRole::Text, 2};
            break;
        case ColumnRole::Amount:
            if (facts.AreDates() && !amounts)
                role = {ColumnRole::ValueDate, 1};
            else if (!amounts)
                role = {facts.letters > 0 ? ColumnRole::Text : ColumnRole::Ignored, 2};
            break;
        case ColumnRole::In:
        case ColumnRole::Out:
            if (facts.AreMarks())
                role = {ColumnRole::Mark, 1};
            else if (!amounts)
                role = {ColumnRole::Text, 2};
            break;
        case ColumnRole::Mark:
            if (amounts && !facts.AreMarks())
                role = {ColumnRole::Amount, 2};
            break;
        case ColumnRole::Balance:
        case ColumnRole::Fee:
        case ColumnRole::OriginalAmount:
            if (!amounts)
                role = {ColumnRole::Ignored, 2};
            break;
        case ColumnRole::Currency:
            if (amounts)
                role = {ColumnRole::Amount, 5};
            else if (!facts.AreCurrencies())
                role = {ColumnRole::Text, 3};
            break;
        case ColumnRole::Check:
            if (!facts.Mostly(facts.digits))
                role = {ColumnRole::Text, 2};
            break;
        default: break;
    }
}

/// What a column without a known name holds.
void ColumnRoles::ByCells(std::size_t column)
{
    NamedRole& role = roles_[column];
    const ColumnFacts& facts = facts_[column];
    const bool sixDigits = facts.digits == facts.filled && facts.longest == 6;
    if (facts.dates == facts.filled && (!sixDigits || facts.filled == Rows()))
        role = {ColumnRole::Date, 6};
    else if (facts.currencies == facts.filled && facts.letters == facts.filled)
        role = {ColumnRole::Currency, 6};
    else if (facts.amounts == facts.filled && facts.plainAmounts > 0)
        role = {ColumnRole::Amount, kUnnamed};
    else if (facts.AreMarks() && ((facts.marksIn > 0 && facts.marksOut > 0) || facts.shortest > 1))
        role = {ColumnRole::Mark, 6};
    else if (facts.ibans == facts.filled && facts.values.size() == 1)
        role = {ColumnRole::Account, 6};
}

}  // namespace clb
