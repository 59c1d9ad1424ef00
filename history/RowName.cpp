#include "history/RowName.h"

#include "base/Text.h"

namespace clb {
namespace {

/// The cell as text; empty without it.
std::string TextOf(const NamedValues& cells, std::string_view column)
{
    for (const auto& [name, value] : cells)
        if (EqualsIgnoringCase(name, column))
            return ToText(value);
    return {};
}

std::string Quoted(const std::string& text)
{
    return " '" + text + "'";
}

}  // namespace

std::string RowName(const std::string& table, std::int64_t row, const NamedValues& cells,
                    const std::function<std::string(const std::string& day)>& shownDay)
{
    const auto text = [&cells](std::string_view column) { return TextOf(cells, column); };
    if (EqualsIgnoringCase(table, "Trans") && !text("PostDate").empty()) {
        const std::string day = text("PostDate").substr(0, 10);
        return "the transaction of " + (shownDay ? shownDay(day) : day) +
               Quoted(text("Description"));
    }
    if (EqualsIgnoringCase(table, "Account") && !text("AccountID").empty())
        return "the account" +
               Quoted(text("Description").empty() ? text("AccountID") : text("Description"));
    if (EqualsIgnoringCase(table, "Budget") && !text("Category").empty())
        return "the budget line" + Quoted(text("Category")) + " of " + text("Period") + "/" +
               text("Year");
    if (EqualsIgnoringCase(table, "Investment") && !text("StockSymbol").empty())
        return "the holding" + Quoted(text("StockSymbol"));
    if (EqualsIgnoringCase(table, "Loan") && !text("Description").empty())
        return "the loan" + Quoted(text("Description"));
    return "row " + std::to_string(row) + " of " + table;
}

}  // namespace clb
