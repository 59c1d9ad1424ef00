#include "engine/sql/Schema.h"

#include <algorithm>

#include "base/Text.h"
#include "engine/sql/Rebuild.h"
#include "engine/storage/Refusals.h"

namespace clb {
namespace {

std::string NameList(const std::vector<std::string>& names)
{
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + QuoteName(name);
    return list;
}

std::string Definition(const ColumnDefinition& column)
{
    std::string text = QuoteName(column.name) + " " + DeclaredType(column.type);
    if (column.type.counter)
        return text + " PRIMARY KEY AUTOINCREMENT";
    if (column.notNull)
        text += " NOT NULL";
    if (column.defaultValue && !IsNull(*column.defaultValue))
        text += " DEFAULT " + StoredLiteral(*column.defaultValue, column.type, column.name);
    if (column.primaryKey)
        text += " PRIMARY KEY";
    if (column.unique)
        text += " UNIQUE";
    return text;
}

class SchemaChange {
public:
    SchemaChange(Catalogue& catalogue, Database& database)
        : catalogue_(catalogue), database_(database)
    {
    }

    void operator()(const CreateTableQuery& create)
    {
        if (catalogue_.Find(create.table))
            throw refuse::TableExists(create.table);
        std::string parts;
        for (const ColumnDefinition& column : create.columns)
            parts += (parts.empty() ? "" : ", ") + Definition(column);
        for (const auto& key : create.keys)
            parts += std::string(", ") + (key.primary ? "PRIMARY KEY (" : "UNIQUE (") +
                     NameList(key.columns) + ")";
        database_.Run("CREATE TABLE " + QuoteName(create.table) + " (" + parts + ")");
    }

    void operator()(const CreateIndexQuery& create)
    {
        const TableInfo& table = catalogue_.Table(create.table);
        std::string parts;
        for (const auto& part : create.parts) {
            RequireColumn(table, part.column);
            parts += (parts.empty() ? "" : ", ") + QuoteName(part.column) +
                     (part.descending ? " DESC" : "");
        }
        database_.Run(std::string(create.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                      QuoteName(create.index) + " ON " + QuoteName(table.name) + " (" + parts +
                      ")");
    }

    void operator()(const DropTableQuery& drop)
    {
        database_.Run("DROP TABLE " + QuoteName(catalogue_.Table(drop.table).name));
    }

    void operator()(const DropIndexQuery& drop)
    {
        const TableInfo& table = catalogue_.Table(drop.table);
        Query find = database_.Prepare(
            "SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL AND "
            "tbl_name = ?1 AND name = ?2 COLLATE NOCASE");
        find.BindText(1, table.name);
        find.BindText(2, drop.index);
        if (!database_.Step(find))
            throw refuse::WrongSql("No such index '" + drop.index + "' on table '" + table.name +
                                   "'.");
        const std::string name = find.Text(0);
        find.Reset();
        database_.Run("DROP INDEX " + QuoteName(name));
    }

    void operator()(const AddColumnQuery& add)
    {
        const TableInfo& table = catalogue_.Table(add.table);
        if (table.Find(add.column.name))
            throw refuse::WrongSql("Field '" + add.column.name + "' already exists in table '" +
                                   table.name + "'.");
        if (add.column.type.counter)
            throw refuse::WrongSql("A counter can only be made together with its table.");
        database_.Run("ALTER TABLE " + QuoteName(table.name) + " ADD COLUMN " +
                      Definition(add.column));
        if (table.placeholder)
            DropFromStorage(table, kPlaceholder);
    }

    void operator()(const AlterColumnQuery& alter)
    {
        const TableInfo& table = catalogue_.Table(alter.table);
        ColumnInfo column = RequireColumn(table, alter.column.name);
        if (column.type.counter || alter.column.type.counter)
            throw refuse::WrongSql("The type of a counter cannot be changed.");
        column.defaultSql =
            alter.column.defaultValue
                ? StoredLiteral(*alter.column.defaultValue, alter.column.type, column.name)
                : ConvertedDefault(column, alter.column.type, database_);
        column.type = alter.column.type;
        column.notNull = column.notNull || alter.column.notNull;
        RebuildWithColumn(table, column, database_);
    }

    void operator()(const DropColumnQuery& drop)
    {
        const TableInfo& table = catalogue_.Table(drop.table);
        const ColumnInfo& column = RequireColumn(table, drop.column);
        if (table.columns.size() == 1)
            database_.Run("ALTER TABLE " + QuoteName(table.name) + " ADD COLUMN " +
                          QuoteName(kPlaceholder));
        DropFromStorage(table, column.name);
    }

private:
    static const ColumnInfo& RequireColumn(const TableInfo& table, const std::string& name)
    {
        const ColumnInfo* column = table.Find(name);
        if (!column)
            throw refuse::NoSuchColumn(table.name + "." + name);
        return *column;
    }

    void DropFromStorage(const TableInfo& table, std::string_view column)
    {
        database_.Run("ALTER TABLE " + QuoteName(table.name) + " DROP COLUMN " + QuoteName(column));
    }

    Catalogue& catalogue_;
    Database& database_;
};

}  // namespace

void ApplyDdl(const DdlQuery& ddl, Catalogue& catalogue, Database& database)
{
    database.Run("SAVEPOINT clb_schema");
    try {
        std::visit(SchemaChange(catalogue, database), ddl);
        database.Run("RELEASE clb_schema");
    } catch (const RuntimeError&) {
        // After a disk error the storage may already have rolled back. After any other exception
        // the whole command is rolled back.
        if (database.InTransaction())
            database.Run("ROLLBACK TO clb_schema; RELEASE clb_schema");
        throw;
    }
}

}  // namespace clb
