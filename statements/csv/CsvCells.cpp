#include "statements/csv/CsvCells.h"

#include <algorithm>

#include "statements/form/AmountText.h"
#include "statements/form/DateScanner.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

constexpr std::size_t kLongestCell = 60;

bool HasDigit(std::string_view cell)
{
    return std::any_of(cell.begin(), cell.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

bool IsDateCell(std::string_view cell)
{
    if (cell.size() < 6 || cell.size() > kLongestCell || !HasDigit(cell))
        return false;
    const auto scanned = DateScanner(cell).Scan();
    return scanned && (scanned->In(DateText::Order::DayMonthYear) ||
                       scanned->In(DateText::Order::MonthDayYear) ||
                       scanned->In(DateText::Order::YearMonthDay));
}

bool IsAmountCell(std::string_view cell)
{
    return cell.size() <= kLongestCell && HasDigit(cell) &&
           (ReadWrittenAmount(cell, '.') || ReadWrittenAmount(cell, ','));
}

bool IsPlainlyAmount(std::string_view cell)
{
    return IsAmountCell(cell) && std::any_of(cell.begin(), cell.end(), [](char c) {
               return c != ' ' && (c < '0' || c > '9');
           });
}

bool IsIbanCell(std::string_view cell)
{
    std::size_t length = 0;
    for (const char c : cell) {
        if (c == ' ')
            continue;
        const auto code = static_cast<unsigned char>(c);
        const bool fits = length < 2   ? c >= 'A' && c <= 'Z'
                          : length < 4 ? IsDigit(code)
                                       : IsDigit(code) || (c >= 'A' && c <= 'Z');
        if (!fits)
            return false;
        ++length;
    }
    return length >= 15 && length <= 34;
}

bool IsDataRow(const CsvRecord& record)
{
    std::size_t dates = 0;
    std::size_t amounts = 0;
    std::size_t both = 0;
    for (const std::string_view field : record.fields) {
        if (field.empty())
            continue;
        const bool date = IsDateCell(field);
        const bool amount = IsAmountCell(field);
        dates += date ? 1U : 0U;
        amounts += amount ? 1U : 0U;
        both += date && amount ? 1U : 0U;
    }
    return dates > 0 && amounts > 0 && dates + amounts - both > 1;
}

}  // namespace clb
