#include "data/WholeBook.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "data/SchemaVersion.h"
#include "engine/Connection.h"
#include "engine/EngineError.h"

namespace clb {
namespace {

using Names = std::vector<std::string>;

struct Table {
    const char* name;
    Names columns;
};

std::vector<Table> TablesOf(std::int16_t version)
{
    std::vector<Table> tables{
        {"Account",
         {"AccountID", "Description", "Type", "OpeningBalance", "CurrentBalance", "Sequence"}},
        {"Trans",
         {"Sequence", "SubSequence", "AccountID", "PostDate", "Description", "Amount", "CheckID",
          "Category", "PayeeName", "Year", "Period", "FITID"}},
        {"Budget", {"Sequence", "Year", "Period", "CategoryGroup", "Category", "Amount"}},
        {"Investment",
         {"StockSymbol", "StockName", "PurchaseDate", "Quantity", "PurchasePrice", "LastPrice",
          "Total", "AccountID", "Sequence"}},
        {"Loan",
         {"Description", "OriginalAmount", "PaidAmount", "InterestRate", "AccountID", "Sequence"}}};
    // The update from version 1 adds it.
    if (version < 0 || version >= kSchemaVersion)
        tables.front().columns.emplace_back("BudgetInclude");
    return tables;
}

/// The columns that are missing from the table; nothing if there is no such table.
std::optional<Names> MissingColumns(Connection& book, const Table& table)
{
    try {
        const Recordset rows =
            book.Execute(std::string("SELECT * FROM ") + table.name + " WHERE false");
        Names missing = table.columns;
        std::erase_if(missing, [&](const std::string& column) {
            return std::any_of(rows.Fields().begin(), rows.Fields().end(), [&](const auto& field) {
                return EqualsIgnoringCase(field.name, column);
            });
        });
        return missing;
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::NoSuchTable)
            throw;
        return std::nullopt;
    }
}

/// "the table Loan is missing", "the tables Budget and Loan are missing".
std::string Sentence(const std::string& what, const Names& names)
{
    std::string listed;
    for (std::size_t at = 0; at < names.size(); ++at)
        listed += (at == 0 ? "" : at + 1 == names.size() ? " and " : ", ") + names[at];
    return "the " + what + (names.size() == 1 ? " " : "s ") + listed +
           (names.size() == 1 ? " is missing" : " are missing");
}

}  // namespace

std::string MissingFrom(Connection& book)
{
    Names tables;
    Names columns;
    for (const Table& table : TablesOf(SchemaVersionOf(book).value_or(0))) {
        const auto missing = MissingColumns(book, table);
        if (!missing)
            tables.emplace_back(table.name);
        for (const std::string& column : missing.value_or(Names()))
            columns.push_back(table.name + std::string(".") + column);
    }
    if (!tables.empty())
        return Sentence("table", tables);
    return columns.empty() ? std::string() : Sentence("column", columns);
}

}  // namespace clb
