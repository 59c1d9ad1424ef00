#include "statements/csv/CsvRows.h"

#include <algorithm>

#include "statements/csv/CellWords.h"
#include "statements/csv/CsvCells.h"
#include "statements/form/CurrencyMarks.h"

namespace clb {
namespace {

constexpr std::size_t kMostExtra = 12;

}  // namespace

CsvRows::CsvRows(const CsvTable& table, const CsvColumns& columns)
    : table_(table), columns_(columns), isTyped_(table.Width(), false)
{
    const auto typed = [this](const std::optional<std::size_t>& column) {
        if (column && *column < isTyped_.size())
            isTyped_[*column] = true;
    };
    for (const std::size_t date : columns.dates)
        typed(date);
    for (const AmountSource& source : columns.sources)
        for (const auto& column : {source.amount, source.mark, source.in, source.out, source.fee})
            typed(column);
    for (const std::size_t balance : columns.balances)
        typed(balance);
    typed(columns.currency);
    typed(columns.account);
    typed(columns.valueDate);
}

std::string_view CsvRows::DateOf(const CsvColumns& columns, const CsvRecord& record)
{
    for (const std::size_t column : columns.dates)
        if (IsDateCell(record.Field(column)))
            return record.Field(column);
    return {};
}

bool CsvRows::IsTooLong(const CsvRecord& record) const
{
    for (std::size_t i = table_.Width(); i < record.fields.size(); ++i)
        if (!record.fields[i].empty())
            return true;
    return false;
}

void CsvRows::ForEach(const std::function<void(const CsvRecord&)>& take) const
{
    table_.ForEachRecord([&](const CsvRecord& record) {
        if (!IsTooLong(record))
            return take(record);
        CsvRecord row = record;
        Fit(row);
        take(row);
    });
}

bool CsvRows::IsMark(std::size_t column) const
{
    return std::any_of(columns_.sources.begin(), columns_.sources.end(),
                       [column](const AmountSource& source) { return source.mark == column; });
}

bool CsvRows::IsAmount(std::size_t column) const
{
    return std::any_of(
        columns_.sources.begin(), columns_.sources.end(), [column](const AmountSource& source) {
            return source.amount == column || source.in == column || source.out == column;
        });
}

/// Whether the cell is what its column holds.
bool CsvRows::Fits(std::size_t column, std::string_view cell, bool isDate) const
{
    if (isDate)
        return IsDateCell(cell);
    if (columns_.currency == column)
        return IsCurrencyMark(cell);
    return IsMark(column) ? SideOfMark(cell) != CellSide::None : IsAmountCell(cell);
}

std::optional<std::string> CsvRows::Typed(const CsvRecord& record) const
{
    std::string typed;
    bool dated = false;
    bool amount = false;
    for (std::size_t i = 0; i < isTyped_.size(); ++i) {
        if (!isTyped_[i])
            continue;
        const std::string_view cell = record.Field(i);
        const bool isDate =
            std::find(columns_.dates.begin(), columns_.dates.end(), i) != columns_.dates.end() ||
            columns_.valueDate == i;
        typed.append(cell).append(1, '\n');
        if (cell.empty() || columns_.account == i)
            continue;
        if (!Fits(i, cell, isDate))
            return std::nullopt;
        dated = dated || isDate;
        amount = amount || IsAmount(i);
    }
    return dated && amount ? std::optional(typed) : std::nullopt;
}

void CsvRows::Fit(CsvRecord& record) const
{
    std::size_t last = record.fields.size();
    while (last > 0 && record.fields[last - 1].empty())
        --last;
    const std::size_t extra = last - table_.Width();
    CsvRecord best;
    std::optional<std::string> typed = extra > kMostExtra ? std::nullopt : Typed(record);
    bool several = false;
    if (typed)
        best = record;
    for (std::size_t at = 0; extra <= kMostExtra && at < table_.Width(); ++at) {
        if (isTyped_[at] || at + extra >= record.fields.size())
            continue;
        CsvRecord joined = record;
        joined.Join(at, extra);
        const auto fits = Typed(joined);
        if (!fits)
            continue;
        several = several || (typed && *typed != *fits);
        typed = fits;
        best = joined;
    }
    if (typed && !several)
        record = best;
    else
        record.fields.clear();
}

}  // namespace clb
