#include "engine/sql/CompilerSelect.h"

#include <algorithm>

#include "base/Text.h"
#include "engine/sql/Checker.h"
#include "engine/sql/Grouping.h"
#include "engine/sql/Typing.h"
#include "engine/storage/Refusals.h"

namespace clb {
namespace {

/// One field of the result.
struct Output {
    const Expression* expression = nullptr;
    ExpressionPtr owned;  ///< set for a column that "*" includes
    std::string name;
    bool alias = false;
};

void CollectSources(const TableExpression& from, Catalogue& catalogue, std::vector<Source>& sources)
{
    if (from.left) {
        CollectSources(*from.left, catalogue, sources);
        CollectSources(*from.right, catalogue, sources);
        return;
    }
    for (const Source& other : sources)
        if (EqualsIgnoringCase(other.alias, from.alias))
            throw refuse::WrongSql("The table name '" + from.alias +
                                   "' stands more than once in the FROM clause.");
    sources.push_back({&catalogue.Table(from.table), from.alias});
}

bool AllInner(const TableExpression& from)
{
    return !from.left ||
           (from.join == JoinKind::Inner && AllInner(*from.left) && AllInner(*from.right));
}

std::vector<Source> SourcesOf(const TableExpression& from, Catalogue& catalogue)
{
    std::vector<Source> sources;
    CollectSources(from, catalogue, sources);
    return sources;
}

class SelectCompiler {
public:
    SelectCompiler(SelectQuery& select, Catalogue& catalogue)
        : select_(select), checker_(SourcesOf(*select.from, catalogue))
    {
        CheckJoins(*select_.from);
        if (select_.where)
            checker_.CheckCondition(*select_.where, false);
        for (const ExpressionPtr& key : select_.groupBy)
            checker_.Check(*key, false);
        ExpandItems();
        NameOutputs();
        if (select_.having)
            checker_.CheckCondition(*select_.having, true);
        for (OrderItem& item : select_.orderBy)
            ResolveOrder(item);
        CheckDistinct();
        CheckGrouping();
    }

    [[nodiscard]] const std::vector<Output>& Outputs() const { return outputs_; }

    void WriteTo(ExpressionWriter& writer, const std::vector<const ColumnInfo*>* columns)
    {
        writer.Text(select_.distinct ? "SELECT DISTINCT " : "SELECT ");
        WriteItems(writer, columns);
        writer.Text(" FROM ");
        const bool flat = AllInner(*select_.from);
        flat ? WriteFlat(writer, *select_.from) : WriteNested(writer, *select_.from);
        WriteWhere(writer, flat);
        WriteGroups(writer);
        WriteOrder(writer, flat);
        if (select_.top)
            writer.Text(" LIMIT " + std::to_string(*select_.top));
    }

    std::unique_ptr<Plan> Describe()
    {
        auto plan = std::make_unique<Plan>();
        plan->kind = Plan::Kind::Select;
        plan->carriesRowId = CarriesRowId();
        plan->updatable = plan->carriesRowId;
        plan->plain = true;
        for (const Output& output : outputs_)
            Describe(output, *plan);
        plan->readOnlyFields = plan->fields;
        for (Field& field : plan->readOnlyFields)
            field.updatable = false;
        if (plan->carriesRowId)
            DescribeTable(*plan);
        return plan;
    }

private:
    void CheckJoins(TableExpression& from)
    {
        if (!from.left)
            return;
        CheckJoins(*from.left);
        CheckJoins(*from.right);
        if (from.on)
            checker_.CheckCondition(*from.on, false);
    }

    void ExpandItems()
    {
        for (SelectItem& item : select_.items) {
            if (item.star) {
                ExpandStar(item);
                continue;
            }
            checker_.Check(*item.expression, true);
            Output output;
            output.expression = item.expression.get();
            output.name = item.alias;
            output.alias = !item.alias.empty();
            outputs_.push_back(std::move(output));
        }
    }

    void ExpandStar(const SelectItem& item)
    {
        for (const std::size_t source : checker_.SourcesNamed(item.qualifier))
            for (const ColumnInfo& column : checker_.Sources()[source].table->columns) {
                Output output;
                output.owned = std::make_unique<Expression>();
                output.owned->kind = ExpressionKind::Column;
                output.owned->name = column.name;
                output.owned->source = source;
                output.owned->column = &column;
                output.owned->type = column.type.type;
                output.expression = output.owned.get();
                outputs_.push_back(std::move(output));
            }
    }

    /// A column keeps its name, qualified if two tables have it. An expression without an alias
    /// gets a number.
    void NameOutputs()
    {
        int unnamed = 1000;
        for (Output& output : outputs_) {
            if (output.alias)
                RequireUniqueAlias(output);
            else if (output.expression->kind == ExpressionKind::Column)
                output.name = ColumnOutputName(*output.expression);
            else
                output.name = "Expr" + std::to_string(unnamed++);
        }
    }

    void RequireUniqueAlias(const Output& output) const
    {
        for (const Output& other : outputs_)
            if (&other != &output && other.alias && EqualsIgnoringCase(other.name, output.name))
                throw refuse::WrongSql("Duplicate output alias '" + output.name + "'.");
    }

    [[nodiscard]] std::string ColumnOutputName(const Expression& column) const
    {
        const bool shared = std::any_of(outputs_.begin(), outputs_.end(), [&](const Output& other) {
            const Expression& e = *other.expression;
            return !other.alias && e.kind == ExpressionKind::Column && e.source != column.source &&
                   EqualsIgnoringCase(e.column->name, column.column->name);
        });
        const std::string& name = column.column->name;
        return shared ? checker_.Sources()[column.source].alias + "." + name : name;
    }

    void ResolveOrder(OrderItem& item)
    {
        if (!item.expression) {
            if (item.position == 0 || item.position > outputs_.size())
                throw refuse::WrongSql("There is no field number " + std::to_string(item.position) +
                                       " to order by.");
            order_.push_back(outputs_[item.position - 1].expression);
            return;
        }
        Expression& key = *item.expression;
        order_.push_back(&key);
        if (key.kind == ExpressionKind::Column && key.qualifier.empty() && !IsColumn(key.name))
            for (const Output& output : outputs_)
                if (output.alias && EqualsIgnoringCase(output.name, key.name)) {
                    order_.back() = output.expression;
                    return;
                }
        checker_.Check(key, true);
    }

    [[nodiscard]] bool IsColumn(const std::string& name) const
    {
        return std::any_of(checker_.Sources().begin(), checker_.Sources().end(),
                           [&](const Source& source) { return source.table->Find(name); });
    }

    void CheckDistinct() const
    {
        if (!select_.distinct)
            return;
        for (const Expression* key : order_)
            if (std::none_of(outputs_.begin(), outputs_.end(), [&](const Output& output) {
                    return output.expression == key || SameExpression(*output.expression, *key);
                }))
                throw refuse::WrongSql("ORDER BY conflicts with DISTINCT: it names no field.");
    }

    void CheckGrouping()
    {
        const auto aggregates = [](const Expression* e) { return e->aggregates; };
        grouped_ = !select_.groupBy.empty() || select_.having ||
                   std::any_of(order_.begin(), order_.end(), aggregates);
        for (const Output& output : outputs_)
            grouped_ = grouped_ || output.expression->aggregates;
        if (!grouped_)
            return;
        for (const Output& output : outputs_)
            RequireGrouped(*output.expression, select_.groupBy);
        for (const Expression* key : order_)
            RequireGrouped(*key, select_.groupBy);
        if (select_.having)
            RequireGrouped(*select_.having, select_.groupBy);
    }

    [[nodiscard]] bool CarriesRowId() const
    {
        return checker_.Sources().size() == 1 && !grouped_ && !select_.distinct &&
               checker_.Sources()[0].table->identities;
    }

    void WriteItems(ExpressionWriter& writer, const std::vector<const ColumnInfo*>* columns)
    {
        for (std::size_t i = 0; i < outputs_.size(); ++i) {
            writer.Text(i > 0 ? ", " : "");
            if (columns)
                writer.WriteForColumn(*outputs_[i].expression, *(*columns)[i]);
            else
                writer.Write(*outputs_[i].expression);
        }
        if (CarriesRowId() && !columns)
            writer.Text(outputs_.empty() ? "t0.rowid" : ", t0.rowid");
        else if (outputs_.empty())
            throw refuse::WrongSql("The tables have no columns.");
    }

    void WriteTable(ExpressionWriter& writer, const TableExpression& from)
    {
        writer.Name(checker_.Sources()[from.source].table->name);
        writer.Text(" AS t" + std::to_string(from.source));
    }

    void WriteFlat(ExpressionWriter& writer, const TableExpression& from)
    {
        if (!from.left)
            return WriteTable(writer, from);
        WriteFlat(writer, *from.left);
        writer.Text(", ");
        WriteFlat(writer, *from.right);
    }

    void WriteNested(ExpressionWriter& writer, const TableExpression& from)
    {
        if (!from.left) {
            visible_.push_back(from.source);
            return WriteTable(writer, from);
        }
        WriteNested(writer, *from.left);
        writer.Text(from.join == JoinKind::Left ? " LEFT JOIN " : " JOIN ");
        const std::size_t before = visible_.size();
        writer.Text(from.right->left ? "(" : "");
        WriteNested(writer, *from.right);
        if (from.right->left) {
            writer.Text(")");
            visible_.resize(before);  // the identities of rows are not visible outside a subquery
        }
        if (from.on)
            writer.Text(" ON ").WriteCondition(*from.on);
    }

    void WriteWhere(ExpressionWriter& writer, bool flat)
    {
        std::vector<const Expression*> conditions;
        if (flat)
            CollectConditions(*select_.from, conditions);
        if (select_.where)
            conditions.push_back(select_.where.get());
        for (std::size_t i = 0; i < conditions.size(); ++i)
            writer.Text(i > 0 ? " AND " : " WHERE ").WriteCondition(*conditions[i]);
    }

    static void CollectConditions(const TableExpression& from,
                                  std::vector<const Expression*>& conditions)
    {
        if (!from.left)
            return;
        CollectConditions(*from.left, conditions);
        CollectConditions(*from.right, conditions);
        if (from.on)
            conditions.push_back(from.on.get());
    }

    void WriteGroups(ExpressionWriter& writer)
    {
        for (std::size_t i = 0; i < select_.groupBy.size(); ++i)
            writer.Text(i > 0 ? ", " : " GROUP BY ").Write(*select_.groupBy[i]);
        if (select_.having)
            writer.Text(" HAVING ").WriteCondition(*select_.having);
    }

    /// Rows with equal keys come in the order of insertion, that of the last table first.
    void WriteOrder(ExpressionWriter& writer, bool flat)
    {
        std::string_view divider = " ORDER BY ";
        for (std::size_t i = 0; i < order_.size(); ++i) {
            writer.Text(divider).WriteOrder(*order_[i], select_.orderBy[i].descending);
            divider = ", ";
        }
        if (grouped_ || select_.distinct)
            return;
        if (flat)
            for (std::size_t i = 0; i < checker_.Sources().size(); ++i)
                visible_.push_back(i);
        for (auto source = visible_.rbegin(); source != visible_.rend(); ++source) {
            if (!checker_.Sources()[*source].table->identities)
                continue;
            writer.Text(divider).Text("t" + std::to_string(*source) + ".rowid");
            divider = ", ";
        }
    }

    static void Describe(const Output& output, Plan& plan)
    {
        const Expression& e = *output.expression;
        const bool column = e.kind == ExpressionKind::Column;
        Field field;
        field.name = output.name;
        field.type = e.type;
        field.width = column ? e.column->type.width : 0;
        field.updatable = column && plan.updatable;
        field.counter = column && plan.updatable && e.column->type.counter;
        plan.fields.push_back(std::move(field));
        plan.columns.push_back(column ? *e.column : ColumnInfo{});
        plan.plain = plan.plain && column;
    }

    void DescribeTable(Plan& plan)
    {
        const TableInfo& table = *checker_.Sources()[0].table;
        plan.table = table.name;
        plan.numberedTable = table.HasCounter() ? table.name : std::string();
        plan.triggers = table.triggers;
        ExpressionWriter reader;
        reader.Text("SELECT ");
        WriteItems(reader, nullptr);
        const int row = static_cast<int>(reader.Parameters().size()) + 1;
        plan.readerRowParameter = row;
        const std::string items = reader.TakeSql();
        const std::string from =
            ExpressionWriter().Text(" FROM ").Name(table.name).TakeSql() + " AS t0 WHERE ";
        plan.readerSql = items + from + "t0.rowid = ?" + std::to_string(row);
        plan.stretchSql = items + ", t0.rowid" + from + "t0.rowid BETWEEN ?" + std::to_string(row) +
                          " AND ?" + std::to_string(row + 1) + " ORDER BY t0.rowid";
        if (plan.plain && select_.orderBy.empty() && !select_.top)
            DescribeIdentities(table.name, plan);
    }

    /// In these queries only the condition has parameters.
    void DescribeIdentities(const std::string& table, Plan& plan)
    {
        ExpressionWriter identities;
        identities.Text("SELECT t0.rowid FROM ").Name(table).Text(" AS t0");
        WriteWhere(identities, true);
        plan.identitiesSql = identities.Text(" ORDER BY t0.rowid").TakeSql();
    }

    SelectQuery& select_;
    Checker checker_;
    std::vector<Output> outputs_;
    std::vector<const Expression*> order_;  // one per item of ORDER BY
    std::vector<std::size_t> visible_;      // tables whose row identities can be selected
    bool grouped_ = false;
};

}  // namespace

CompiledSelect CompileSelect(SelectQuery& select, Catalogue& catalogue)
{
    SelectCompiler compiler(select, catalogue);
    ExpressionWriter writer;
    compiler.WriteTo(writer, nullptr);
    CompiledSelect compiled;
    compiled.plan = compiler.Describe();
    compiled.plan->parameters = writer.Parameters();
    compiled.sql = writer.TakeSql();
    return compiled;
}

void WriteSelectFor(const std::vector<const ColumnInfo*>& columns, SelectQuery& select,
                    Catalogue& catalogue, ExpressionWriter& writer)
{
    SelectCompiler compiler(select, catalogue);
    const auto& outputs = compiler.Outputs();
    if (outputs.size() != columns.size())
        throw refuse::WrongSql("Number of query values and destination fields are not the same.");
    for (std::size_t i = 0; i < columns.size(); ++i)
        RequireStorable(*outputs[i].expression, *columns[i]);
    compiler.WriteTo(writer, &columns);
}

void RequireStorable(const Expression& value, const ColumnInfo& column)
{
    // A text is converted when the query runs, and so is NULL.
    if (value.type == FieldType::Text || column.type.type == FieldType::Text)
        return;
    if ((value.type == FieldType::Date) != (column.type.type == FieldType::Date))
        throw refuse::TypeMismatch();
}

}  // namespace clb
