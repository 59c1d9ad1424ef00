#include "check/CheckSchema.h"

#include <algorithm>
#include <cctype>

#include "base/Numeric.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/EmptyDatabase.h"
#include "data/SchemaVersion.h"
#include "engine/storage/Catalogue.h"

namespace clb {
namespace {

/// Removes spaces and quotes around names from a declaration, because they do not matter.
std::string Condensed(const std::string& sql)
{
    std::string condensed;
    for (const char c : sql)
        if (std::isspace(static_cast<unsigned char>(c)) == 0 && c != '"')
            condensed += c;
    return ToUpperAscii(condensed);
}

/// What the next start changes itself: it adds BudgetInclude and makes InterestRate a SINGLE.
bool IsUpgraded(const std::string& column, bool missing, std::int16_t version)
{
    return missing ? column == "BudgetInclude" && version < 2
                   : column == "InterestRate" && version == 0;
}

std::string ColumnPlace(const TableInfo& table, const ColumnInfo& column)
{
    return "The column " + table.name + "." + column.name;
}

}  // namespace

const std::vector<std::string>& OwnTables()
{
    static const std::vector<std::string> tables = {"Account", "Trans", "Budget", "Investment",
                                                    "Loan"};
    return tables;
}

CheckSchema::CheckSchema(RawSql& raw) : raw_(raw), delivered_(RawSql::OfImage(EmptyDatabase())) {}

/// Data of an older version, or without a version, does not have what an upgrade adds.
void CheckSchema::FindLostVersion(const std::string& text, FindingList& findings)
{
    const TableInfo* accounts = raw_.Find("Account");
    if (accounts && accounts->Find("BudgetInclude"))
        findings.Add({.kind = "table",
                      .table = "_SchemaVersion",
                      .text = text,
                      .meaning = "The program takes the data for older than it is and cannot open "
                                 "it. Restore a backup."});
}

std::int16_t CheckSchema::Version(FindingList& findings)
{
    const TableInfo* table = raw_.Find("_SchemaVersion");
    if (!table) {
        FindLostVersion("The table _SchemaVersion is missing, which holds the version of the data.",
                        findings);
        return 0;
    }
    try {
        if (!table->columns.empty()) {
            const auto version = NarrowTo<std::int16_t>(ParseLong(table->columns.front().name));
            if (version >= 0 && version < kSchemaVersion)
                FindLostVersion("The table _SchemaVersion names version " +
                                    std::to_string(version) +
                                    ", but the table Account is of "
                                    "version " +
                                    std::to_string(kSchemaVersion) + ".",
                                findings);
            return version;
        }
    } catch (const RuntimeError&) {
        // Reported below.
    }
    findings.Add({.kind = "table",
                  .table = "_SchemaVersion",
                  .text = "The table _SchemaVersion names no version.",
                  .meaning = "The program does not open such a file."});
    return kSchemaVersion;
}

void CheckSchema::FindColumns(std::int16_t version, FindingList& findings)
{
    for (const std::string& name : OwnTables()) {
        if (raw_.Find(name))
            CompareTable(*delivered_.Find(name), version, findings);
        else
            findings.Add(
                {.kind = "table", .table = name, .text = "The table " + name + " is missing."});
    }
}

void CheckSchema::CompareTable(const TableInfo& expected, std::int16_t version,
                               FindingList& findings)
{
    const TableInfo& actual = *raw_.Find(expected.name);
    for (const ColumnInfo& column : expected.columns) {
        const ColumnInfo* found = actual.Find(column.name);
        if (IsUpgraded(column.name, found == nullptr, version))
            continue;
        const auto add = [&](const std::string& what) {
            findings.Add({.kind = "column",
                          .table = expected.name,
                          .text = ColumnPlace(expected, column) + what,
                          .column = column.name});
        };
        if (!found)
            add(" is missing.");
        else if (found->type.type != column.type.type)
            add(" is declared as " + DeclaredType(found->type) + ", not as " +
                DeclaredType(column.type) + ".");
        else if (column.type.counter && !found->type.counter)
            add(" does not number its rows by itself.");
    }
}

std::vector<CheckSchema::Helper> CheckSchema::Helpers(RawSql& database,
                                                      const std::string& condition)
{
    std::vector<Helper> helpers;
    database.Select(
        "SELECT name, tbl_name, sql FROM sqlite_master WHERE " + condition + " ORDER BY rowid",
        [&](const RawSql::Row& row) {
            helpers.push_back(
                {std::string(row.Text(0)), std::string(row.Text(1)), std::string(row.Text(2))});
        });
    return helpers;
}

void CheckSchema::FindHelpers(FindingList& findings)
{
    FindIndexes(findings);
    for (const std::string& table : OwnTables())
        FindUniqueIndexes(table, findings);
    FindTriggers(findings);
    FindViews(findings);
}

std::string CheckSchema::ColumnsOf(RawSql& database, const std::string& index)
{
    std::string columns;
    database.Select("SELECT name FROM pragma_index_info(" + QuoteText(index) + ") ORDER BY seqno",
                    [&](const RawSql::Row& row) {
                        columns += (columns.empty() ? "" : ", ") +
                                   std::string(row.IsNull(0) ? "an expression" : row.Text(0));
                    });
    return columns;
}

bool CheckSchema::IsIndexed(const std::string& table, const std::string& columns)
{
    std::vector<std::string> whole;
    raw_.Select("SELECT name FROM pragma_index_list(" + QuoteText(table) + ") WHERE partial = 0",
                [&](const RawSql::Row& row) { whole.emplace_back(row.Text(0)); });
    return std::any_of(whole.begin(), whole.end(), [&](const std::string& index) {
        return EqualsIgnoringCase(ColumnsOf(raw_, index), columns);
    });
}

bool CheckSchema::IsTaken(const std::string& name)
{
    return !Helpers(raw_, "name = " + QuoteText(name) + " COLLATE NOCASE").empty();
}

void CheckSchema::FindIndexes(FindingList& findings)
{
    for (const Helper& index : Helpers(delivered_, "type = 'index' AND sql IS NOT NULL")) {
        const std::string columns = ColumnsOf(delivered_, index.name);
        const TableInfo* table = raw_.Find(index.table);
        if (!table || IsIndexed(index.table, columns))
            continue;
        // Another program's index of that name over other columns stays as it is.
        const bool repairable =
            !IsTaken(index.name) &&
            std::ranges::all_of(Split(Replace(columns, ", ", ","), ','),
                                [&](const std::string& column) { return table->Find(column); });
        if (repairable)
            missing_.push_back(index.sql);
        findings.Add({.kind = "index",
                      .table = index.table,
                      .text = "The index " + index.name + " on " + index.table + " (" + columns +
                              ") is missing.",
                      .repairable = repairable});
    }
}

/// None of the delivered indexes is unique.
void CheckSchema::FindUniqueIndexes(const std::string& table, FindingList& findings)
{
    struct Unique {
        std::string name;
        bool declared;  ///< in the table's own declaration
    };
    std::vector<Unique> indexes;
    raw_.Select("SELECT name, origin FROM pragma_index_list(" + QuoteText(table) +
                    ") WHERE \"unique\" = 1 ORDER BY seq DESC",
                [&](const RawSql::Row& row) {
                    indexes.push_back({std::string(row.Text(0)), row.Text(1) != "c"});
                });
    for (const Unique& index : indexes) {
        const std::string columns = ColumnsOf(raw_, index.name);
        std::string text;
        if (index.declared)
            text.append("The table ")
                .append(table)
                .append(", which takes no values of ")
                .append(columns)
                .append(" twice, is not declared so by this program.");
        else
            text.append("The index ")
                .append(index.name)
                .append(" on ")
                .append(table)
                .append(" (")
                .append(columns)
                .append("), which takes no values twice, is not this program's.");
        findings.Add({.kind = "index",
                      .table = table,
                      .text = text,
                      .meaning =
                          "A new row with values that are there already is refused, also by an "
                          "import. Another program made it."});
    }
}

void CheckSchema::FindTriggers(FindingList& findings)
{
    std::vector<Helper> expected = Helpers(delivered_, "type = 'trigger'");
    for (const Helper& trigger : Helpers(raw_, "type = 'trigger'")) {
        const auto ours = std::find_if(expected.begin(), expected.end(), [&](const Helper& own) {
            return Condensed(own.sql) == Condensed(trigger.sql);
        });
        if (ours != expected.end())
            expected.erase(ours);
        else
            findings.Add({.kind = "trigger",
                          .table = trigger.table,
                          .text = "The trigger " + trigger.name + " on " + trigger.table +
                                  " is not this program's."});
    }
    for (const Helper& trigger : expected) {
        const bool repairable = !IsTaken(trigger.name) &&
                                std::ranges::all_of(OwnTables(), [&](const std::string& table) {
                                    return raw_.Find(table);
                                });
        if (repairable)
            missing_.push_back(trigger.sql);
        findings.Add(
            {.kind = "trigger",
             .table = trigger.table,
             .text = "The trigger " + trigger.name + " on " + trigger.table + " is missing.",
             .meaning = "When an account gets another number, its rows stay behind.",
             .repairable = repairable});
    }
}

void CheckSchema::FindViews(FindingList& findings)
{
    for (const Helper& view : Helpers(raw_, "type = 'view'"))
        findings.Add({.kind = "view",
                      .table = view.name,
                      .text = "The view " + view.name + " is not this program's."});
    for (const Helper& table : Helpers(raw_, "type = 'table' AND rootpage = 0"))
        findings.Add({.kind = "view",
                      .table = table.name,
                      .text = "The table " + table.name +
                              " is made up by a module and is not this program's."});
}

}  // namespace clb
