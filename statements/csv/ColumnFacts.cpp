#include <algorithm>

#include "statements/csv/CellWords.h"
#include "statements/csv/CsvCells.h"
#include "statements/csv/CsvColumns.h"
#include "statements/form/AmountText.h"
#include "statements/form/CurrencyMarks.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

constexpr std::size_t kMostValues = 40;
/// All of the first records are looked at, then one in so many.
constexpr std::size_t kAllOf = 1000;
constexpr std::size_t kOneIn = 16;

/// Whether the number has decimals for sure: other than three digits after its last mark.
bool HasFraction(std::string_view cell)
{
    const std::size_t mark = cell.find_last_of(".,");
    std::size_t digits = 0;
    for (std::size_t at = mark; at != std::string_view::npos && at + 1 < cell.size() &&
                                IsDigit(static_cast<unsigned char>(cell[at + 1]));
         ++at)
        ++digits;
    return digits > 0 && digits != 3;
}

bool HasLetters(std::string_view cell)
{
    while (!cell.empty()) {
        const ScannedChar next = FirstChar(cell);
        if (IsLetter(next.code))
            return true;
        cell.remove_prefix(next.size);
    }
    return false;
}

}  // namespace

void ColumnFacts::Add(std::string_view cell)
{
    dashes += cell == "-" ? 1U : 0U;
    if (cell.empty() || cell == "-" || cell == "--" || cell == "/")
        return;
    shortest = filled == 0 ? cell.size() : std::min(shortest, cell.size());
    longest = std::max(longest, cell.size());
    ++filled;
    if (values.size() < kMostValues && !values.contains(cell))
        values.emplace(cell);
    const CellSide side = SideOfMark(cell);
    marksIn += side == CellSide::In ? 1U : 0U;
    marksOut += side == CellSide::Out ? 1U : 0U;
    ibans += IsIbanCell(cell) ? 1U : 0U;
    letters += HasLetters(cell) ? 1U : 0U;
    digits += std::all_of(cell.begin(), cell.end(), [](char c) { return c >= '0' && c <= '9'; })
                  ? 1U
                  : 0U;
    currencies += cell.size() <= 12 && IsCurrencyMark(cell) ? 1U : 0U;
    dates += IsDateCell(cell) ? 1U : 0U;
    if (!IsAmountCell(cell))
        return;
    ++amounts;
    plainAmounts += IsPlainlyAmount(cell) ? 1U : 0U;
    fractions += HasFraction(cell) ? 1U : 0U;
    nonzero += cell.find_first_of("123456789") != std::string_view::npos ? 1U : 0U;
}

void ColumnFacts::SettleDashes()
{
    if (dashes == 0 || values.size() != 1 || *values.begin() != "+")
        return;
    filled += dashes;
    marksOut += dashes;
}

std::vector<ColumnFacts> FactsOf(const CsvTable& table)
{
    std::vector<ColumnFacts> facts(table.Width());
    std::vector<ColumnFacts> ofLong(table.Width());
    std::size_t rows = 0;
    std::size_t taken = 0;
    table.ForEachRecord([&](const CsvRecord& record) {
        ++rows;
        if (rows > kAllOf && rows % kOneIn != 0)
            return;
        if (std::none_of(record.fields.begin(), record.fields.end(), IsDateCell))
            return;
        // In a record with too many fields it is not known which is which.
        const bool isLong =
            record.fields.size() > table.Width() &&
            std::any_of(record.fields.begin() + static_cast<std::ptrdiff_t>(table.Width()),
                        record.fields.end(), [](std::string_view field) { return !field.empty(); });
        taken += isLong ? 0U : 1U;
        for (std::size_t i = 0; i < facts.size(); ++i)
            (isLong ? ofLong : facts)[i].Add(record.Field(i));
    });
    if (taken == 0)
        facts = ofLong;
    for (ColumnFacts& column : facts)
        column.SettleDashes();
    return facts;
}

}  // namespace clb
