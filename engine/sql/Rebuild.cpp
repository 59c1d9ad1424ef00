#include "engine/sql/Rebuild.h"

#include <sqlite3.h>

#include <algorithm>

#include "base/Numeric.h"
#include "base/Text.h"
#include "engine/sql/ExpressionWriter.h"
#include "engine/storage/Convert.h"
#include "engine/storage/Refusals.h"
#include "engine/storage/StoredForm.h"

namespace clb {
namespace {

constexpr std::string_view kNewTable = "clb_rebuilt";

/// While this object lives, renaming a table does not change other tables' triggers.
class PlainRenaming {
public:
    explicit PlainRenaming(Database& database) : raw_(database.Raw())
    {
        sqlite3_db_config(raw_, SQLITE_DBCONFIG_LEGACY_ALTER_TABLE, 1, nullptr);
    }
    ~PlainRenaming() { sqlite3_db_config(raw_, SQLITE_DBCONFIG_LEGACY_ALTER_TABLE, 0, nullptr); }
    PlainRenaming(const PlainRenaming&) = delete;
    PlainRenaming& operator=(const PlainRenaming&) = delete;

private:
    sqlite3* raw_;
};

class TableRebuild {
public:
    TableRebuild(const TableInfo& table, const ColumnInfo& column, Database& database)
        : table_(table), changed_(column), database_(database)
    {
    }

    void Run()
    {
        RequireKnownClauses();
        const auto kept = DependentSchema();
        const auto counter = CounterState();
        database_.Run("CREATE TABLE " + QuoteName(kNewTable) + " (" + Columns() + Keys() + ")");
        CopyRows();
        const PlainRenaming renaming(database_);
        database_.Run("DROP TABLE " + QuoteName(table_.name));
        database_.Run("ALTER TABLE " + QuoteName(kNewTable) + " RENAME TO " +
                      QuoteName(table_.name));
        for (const std::string& sql : kept)
            database_.Run(sql);
        RestoreCounter(counter);
    }

private:
    [[nodiscard]] const ColumnInfo& Wanted(const ColumnInfo& column) const
    {
        return column.name == changed_.name ? changed_ : column;
    }

    /// A rebuilt table has only what the catalogue knows. Other clauses would be lost.
    void RequireKnownClauses()
    {
        Query find =
            database_.Prepare("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?1");
        find.BindText(1, table_.name);
        database_.Step(find);
        const std::string sql = ToUpperAscii(find.Text(0));
        for (const std::string_view clause : {"CHECK", "REFERENCES", "COLLATE", "GENERATED"})
            if (sql.find(clause) != std::string::npos)
                throw refuse::WrongSql("The table '" + table_.name + "' has a " +
                                       std::string(clause) +
                                       " clause; its columns keep their types.");
    }

    [[nodiscard]] std::string Columns() const
    {
        std::string text;
        for (const ColumnInfo& old : table_.columns) {
            const ColumnInfo& column = Wanted(old);
            text += (text.empty() ? "" : ", ") + QuoteName(column.name) + " " +
                    DeclaredType(column.type);
            if (column.type.counter)
                text += HasCounterState() ? " PRIMARY KEY AUTOINCREMENT" : " PRIMARY KEY";
            if (column.notNull)
                text += " NOT NULL";
            if (!column.defaultSql.empty())
                text += " DEFAULT (" + column.defaultSql + ")";
        }
        return text;
    }

    /// The keys for which the storage itself made indices: PRIMARY KEY and UNIQUE.
    [[nodiscard]] std::string Keys() const
    {
        std::string text;
        Query keys = database_.Prepare(
            "SELECT name, origin FROM pragma_index_list(?1) WHERE origin <> 'c' ORDER BY seq DESC");
        keys.BindText(1, table_.name);
        while (database_.Step(keys))
            text += std::string(keys.Text(1) == "pk" ? ", PRIMARY KEY (" : ", UNIQUE (") +
                    IndexColumns(keys.Text(0)) + ")";
        return text;
    }

    [[nodiscard]] std::string IndexColumns(const std::string& index) const
    {
        std::string text;
        Query columns = database_.Prepare("SELECT name FROM pragma_index_info(?1) ORDER BY seqno");
        columns.BindText(1, index);
        while (database_.Step(columns))
            text += (text.empty() ? "" : ", ") + QuoteName(columns.Text(0));
        return text;
    }

    [[nodiscard]] std::vector<std::string> DependentSchema() const
    {
        std::vector<std::string> found;
        Query find = database_.Prepare(
            "SELECT sql FROM sqlite_master WHERE tbl_name = ?1 COLLATE NOCASE AND "
            "type IN ('index', 'trigger') AND sql IS NOT NULL ORDER BY rowid");
        find.BindText(1, table_.name);
        while (database_.Step(find))
            found.push_back(find.Text(0));
        return found;
    }

    [[nodiscard]] bool HasCounterState() const
    {
        Query find = database_.Prepare(
            "SELECT instr(upper(sql), 'AUTOINCREMENT') FROM sqlite_master "
            "WHERE type = 'table' AND name = ?1");
        find.BindText(1, table_.name);
        return database_.Step(find) && find.Integer(0) != 0;
    }

    [[nodiscard]] std::optional<std::int64_t> CounterState() const
    {
        if (!HasCounterState())
            return std::nullopt;
        Query find = database_.Prepare("SELECT seq FROM sqlite_sequence WHERE name = ?1");
        find.BindText(1, table_.name);
        if (!database_.Step(find))
            return std::nullopt;
        return find.Integer(0);
    }

    void RestoreCounter(const std::optional<std::int64_t>& counter)
    {
        if (!counter)
            return;
        const std::string name = QuoteText(table_.name);
        database_.Run("DELETE FROM sqlite_sequence WHERE name = " + name +
                      "; INSERT INTO sqlite_sequence (name, seq) VALUES (" + name + ", " +
                      std::to_string(*counter) + ")");
    }

    void CopyRows()
    {
        ExpressionWriter writer;
        writer.Text("INSERT INTO ").Name(kNewTable).Text(" (rowid");
        std::string values = "rowid";
        for (const ColumnInfo& column : table_.columns) {
            if (column.type.counter)
                continue;
            writer.Text(", ").Name(column.name);
            values += ", " + CopiedValue(column);
        }
        writer.Text(") SELECT " + values + " FROM ").Name(table_.name).Text(" ORDER BY rowid");
        database_.Run(writer.Sql());
    }

    [[nodiscard]] std::string CopiedValue(const ColumnInfo& column) const
    {
        std::string name = QuoteName(column.name);
        if (column.name != changed_.name)
            return name;
        return "clb_convert(" + name + ", " + std::to_string(static_cast<int>(column.type.type)) +
               ", " + std::to_string(static_cast<int>(changed_.type.type)) + ", " +
               std::to_string(changed_.type.width) + ", " + QuoteText(column.name) + ")";
    }

    const TableInfo& table_;
    const ColumnInfo& changed_;
    Database& database_;
};

}  // namespace

std::string StoredLiteral(const Value& value, const ColumnType& type, std::string_view column)
{
    const Value stored = ConvertForColumn(value, type, column);
    return WithStoredForm(stored, Overloaded{
                                      [](Null) { return std::string("NULL"); },
                                      [](std::int64_t number) { return std::to_string(number); },
                                      [](double number) { return ToText(number); },
                                      [](float number) { return ToText(number); },
                                      [](const std::string& text) { return QuoteText(text); },
                                  });
}

std::string ConvertedDefault(const ColumnInfo& column, const ColumnType& type, Database& database)
{
    if (column.defaultSql.empty())
        return {};
    Query read = database.Prepare("SELECT " + column.defaultSql);
    database.Step(read);
    return StoredLiteral(read.Get(0, column.type.type), type, column.name);
}

void RebuildWithColumn(const TableInfo& table, const ColumnInfo& column, Database& database)
{
    TableRebuild(table, column, database).Run();
}

}  // namespace clb
