#include "data/WholeBook.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/SchemaVersion.h"
#include "engine/rows/Connection.h"
#include "engine/storage/EngineError.h"

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

/// The version of a book before its update.
struct Version {
    std::int16_t number = 0;
    bool named = false;  ///< whether the version table names it
};

/// Nothing if the table of the version does not name a number.
std::optional<Version> VersionOf(Connection& book)
{
    try {
        const auto named = SchemaVersionOf(book);
        return Version{named.value_or(0), named.has_value()};
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::ItemNotFound)
            throw;
    } catch (const RuntimeError&) {
        // The name is not a number, or the number is too large.
    }
    return std::nullopt;
}

/// Why the update of the schema would fail: it adds a column that already exists. Empty if it would
/// not fail.
std::string HalfUpdate(Connection& book, const Version& version)
{
    if (version.number < 0 || version.number >= kSchemaVersion)
        return {};
    if (MissingColumns(book, {"Account", {"BudgetInclude"}}) != Names())
        return {};
    if (!version.named)
        return "the table _SchemaVersion is missing";
    return "the table _SchemaVersion names version " + std::to_string(version.number) +
           ", but the table Account is of version " + std::to_string(kSchemaVersion);
}

}  // namespace

std::string MissingFrom(Connection& book)
{
    Names tables;
    Names columns;
    const auto version = VersionOf(book);
    for (const Table& table : TablesOf(version.value_or(Version()).number)) {
        const auto missing = MissingColumns(book, table);
        if (!missing)
            tables.emplace_back(table.name);
        for (const std::string& column : missing.value_or(Names()))
            columns.push_back(table.name + std::string(".") + column);
    }
    if (!tables.empty())
        return Sentence("table", tables);
    if (!columns.empty())
        return Sentence("column", columns);
    return version ? HalfUpdate(book, *version) : "the table _SchemaVersion names no version";
}

}  // namespace clb
