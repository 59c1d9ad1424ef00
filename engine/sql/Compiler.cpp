#include "engine/sql/Compiler.h"

#include <algorithm>

#include "base/Text.h"
#include "engine/sql/Checker.h"
#include "engine/sql/CompilerSelect.h"
#include "engine/sql/Parser.h"
#include "engine/storage/Refusals.h"

namespace clb {
namespace {

class QueryCompiler {
public:
    QueryCompiler(Catalogue& catalogue, Database& database)
        : catalogue_(catalogue), database_(database)
    {
    }

    std::unique_ptr<Plan> operator()(SelectQuery& select)
    {
        auto compiled = CompileSelect(select, catalogue_);
        compiled.plan->query = database_.Prepare(compiled.sql, true);
        return std::move(compiled.plan);
    }

    std::unique_ptr<Plan> operator()(InsertQuery& insert)
    {
        const TableInfo& table = catalogue_.Table(insert.table);
        const auto columns = InsertColumns(table, insert);
        ExpressionWriter writer;
        writer.Text("INSERT INTO ").Name(table.name).Text(" (");
        for (std::size_t i = 0; i < columns.size(); ++i)
            writer.Text(i > 0 ? ", " : "").Name(columns[i]->name);
        writer.Text(") ");
        const bool numbered = table.HasCounter() && std::ranges::none_of(columns, IsCounter);
        if (insert.select)
            WriteSelectFor(columns, *insert.select, catalogue_, writer);
        else
            WriteValues(insert, columns, writer);
        auto plan = Finish(writer);
        plan->numberedTable = numbered ? table.name : std::string();
        return plan;
    }

    std::unique_ptr<Plan> operator()(UpdateQuery& update)
    {
        const TableInfo& table = catalogue_.Table(update.table);
        Checker checker({{&table, table.name}});
        ExpressionWriter writer;
        writer.Text("UPDATE ").Name(table.name).Text(" AS t0 SET ");
        for (std::size_t i = 0; i < update.assignments.size(); ++i) {
            auto& assignment = update.assignments[i];
            static_cast<void>(checker.SourcesNamed(assignment.qualifier));
            const ColumnInfo& column = ColumnOf(table, assignment.column);
            if (column.type.counter)
                throw refuse::FieldNotUpdatable(column.name);
            checker.Check(*assignment.value, false);
            RequireStorable(*assignment.value, column);
            writer.Text(i > 0 ? ", " : "").Name(column.name).Text(" = ");
            writer.WriteForColumn(*assignment.value, column);
        }
        WriteWhere(writer, checker, update.where.get());
        return Finish(writer);
    }

    std::unique_ptr<Plan> operator()(DeleteQuery& remove)
    {
        const TableInfo& table = catalogue_.Table(remove.table);
        Checker checker({{&table, table.name}});
        ExpressionWriter writer;
        writer.Text("DELETE FROM ").Name(table.name).Text(" AS t0");
        WriteWhere(writer, checker, remove.where.get());
        return Finish(writer);
    }

    std::unique_ptr<Plan> operator()(DdlQuery& ddl)
    {
        auto plan = std::make_unique<Plan>();
        plan->kind = Plan::Kind::Ddl;
        plan->ddl = std::make_unique<DdlQuery>(std::move(ddl));
        return plan;
    }

private:
    static const ColumnInfo& ColumnOf(const TableInfo& table, const std::string& name)
    {
        const ColumnInfo* column = table.Find(name);
        if (!column)
            throw refuse::NoSuchColumn(name);
        return *column;
    }

    static std::vector<const ColumnInfo*> InsertColumns(const TableInfo& table,
                                                        const InsertQuery& insert)
    {
        std::vector<const ColumnInfo*> columns;
        for (const std::string& name : insert.columns)
            columns.push_back(&ColumnOf(table, name));
        if (insert.columns.empty())
            for (const ColumnInfo& column : table.columns)
                columns.push_back(&column);
        for (std::size_t i = 0; i < columns.size(); ++i)
            for (std::size_t k = 0; k < i; ++k)
                if (columns[i] == columns[k])
                    throw refuse::WrongSql("Duplicate output destination '" + columns[i]->name +
                                           "'.");
        return columns;
    }

    static bool IsCounter(const ColumnInfo* column) { return column->type.counter; }

    static void WriteValues(InsertQuery& insert, const std::vector<const ColumnInfo*>& columns,
                            ExpressionWriter& writer)
    {
        if (insert.values.size() != columns.size())
            throw refuse::WrongSql(
                "Number of query values and destination fields are not the same.");
        Checker checker({});
        writer.Text("VALUES (");
        for (std::size_t i = 0; i < columns.size(); ++i) {
            checker.Check(*insert.values[i], false);
            writer.Text(i > 0 ? ", " : "").WriteForColumn(*insert.values[i], *columns[i]);
        }
        writer.Text(")");
    }

    static void WriteWhere(ExpressionWriter& writer, Checker& checker, Expression* where)
    {
        if (!where)
            return;
        checker.CheckCondition(*where, false);
        writer.Text(" WHERE ").WriteCondition(*where);
    }

    std::unique_ptr<Plan> Finish(const ExpressionWriter& writer)
    {
        auto plan = std::make_unique<Plan>();
        plan->parameters = writer.Parameters();
        plan->query = database_.Prepare(writer.Sql(), true);
        return plan;
    }

    Catalogue& catalogue_;
    Database& database_;
};

}  // namespace

std::unique_ptr<Plan> Compile(const LexedSql& lexed, Catalogue& catalogue, Database& database)
{
    ParsedQuery parsed = Parse(lexed);
    return std::visit(QueryCompiler(catalogue, database), parsed);
}

}  // namespace clb
