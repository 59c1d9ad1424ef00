#include "app/RowWords.h"

#include <cstdint>

#include "base/Text.h"

namespace clb {
namespace {

constexpr std::int64_t kScaledPerCent = 100;

struct Word {
    std::string_view table;
    std::string_view column;
    const char* word;
};

// The captions of the views. Account.CurrentBalance has another than the view's column, because the
// opening balance is not in it.
constexpr Word kWords[] = {
    {"Trans", "PostDate", "Date"},
    {"Trans", "CheckID", "Check #"},
    {"Trans", "PayeeName", "Notes"},
    {"Trans", "AccountID", "Account #"},
    {"Trans", "Sequence", "Number"},
    {"Trans", "SubSequence", "Piece"},
    {"Trans", "Year", "Booked in Year"},
    {"Trans", "Period", "Booked in Month"},
    {"Trans", "FITID", "Bank's Identifier"},
    {"Account", "AccountID", "Account #"},
    {"Account", "OpeningBalance", "Opening Balance"},
    {"Account", "CurrentBalance", "Sum of Transactions"},
    {"Account", "BudgetInclude", "In Budget"},
    {"Budget", "Amount", "Budgeted"},
    {"Budget", "Period", "Month"},
    {"Budget", "CategoryGroup", "Group"},
    {"Investment", "StockSymbol", "Symbol"},
    {"Investment", "StockName", "Name"},
    {"Investment", "PurchaseDate", "Purchase Date"},
    {"Investment", "PurchasePrice", "Purchase Price"},
    {"Investment", "LastPrice", "Last Price"},
    {"Investment", "AccountID", "Account #"},
    {"Loan", "OriginalAmount", "Original Amount"},
    {"Loan", "PaidAmount", "Paid Amount"},
    {"Loan", "InterestRate", "Interest %"},
    {"Loan", "AccountID", "Account #"},
};

}  // namespace

std::string FieldWord(std::string_view table, std::string_view column)
{
    for (const Word& word : kWords)
        if (EqualsIgnoringCase(word.table, table) && EqualsIgnoringCase(word.column, column))
            return word.word;
    return std::string(column);
}

std::string ShownCell(const Value& value, const IDateForm& dates)
{
    if (const auto* date = std::get_if<Date>(&value))
        return dates.Format(*date);
    if (const auto* money = std::get_if<Money>(&value))
        return money->Scaled() % kScaledPerCent == 0 ? money->Grouped() : money->ToText();
    return ToText(value);
}

}  // namespace clb
