#include "engine/rows/RowWriter.h"

#include <algorithm>
#include <functional>
#include <string>

#include "engine/storage/Refusals.h"

namespace clb {
namespace {

/// Whether reading all rows from the first to the last is less work than reading each by itself.
bool IsStretch(std::span<const std::int64_t> rowIds)
{
    return rowIds.size() > 1 && std::ranges::is_sorted(rowIds, std::less_equal<>()) &&
           rowIds.back() - rowIds.front() < 2 * static_cast<std::int64_t>(rowIds.size());
}

/// "Trans.Amount in row 17", or only the field's name if the rows are not from one table.
std::string PlaceOf(const Plan& plan, std::size_t field, std::int64_t rowId)
{
    if (!plan.carriesRowId || plan.columns[field].name.empty())
        return plan.fields[field].name;
    return plan.table + "." + plan.columns[field].name + " in row " + std::to_string(rowId);
}

}  // namespace

void RowChange::Clear(std::size_t fields)
{
    values.assign(fields, Value());
    set.assign(fields, false);
}

bool RowChange::Any() const
{
    return std::find(set.begin(), set.end(), true) != set.end();
}
bool RowChange::All() const
{
    return std::find(set.begin(), set.end(), false) == set.end();
}

std::int64_t RowWriter::Insert(const RowChange& change)
{
    session_->BeginWrite();
    Query& query = InsertFor(change.set);
    BindChange(query, change);
    if (IsNumbered(change))
        session_->StepInsert(query, plan_->table);
    else
        session_->StepWrite(query);
    return session_->database.LastRowId();
}

bool RowWriter::IsNumbered(const RowChange& change) const
{
    for (std::size_t i = 0; i < change.set.size(); ++i)
        if (change.set[i] && plan_->columns[i].type.counter && !IsNull(change.values[i]))
            return false;
    return !plan_->numberedTable.empty();
}

void RowWriter::Update(std::int64_t rowId, const RowChange& change)
{
    session_->BeginWrite();
    Query& query = UpdateFor(change.set);
    const int last = BindChange(query, change);
    query.BindInteger(last + 1, rowId);
    session_->StepWrite(query);
    if (session_->database.ChangedRows() == 0)
        throw refuse::RowVanished();
}

void RowWriter::Delete(std::int64_t rowId)
{
    session_->BeginWrite();
    if (!plan_->remove)
        plan_->remove = session_->database.Prepare(
            "DELETE FROM " + QuoteName(plan_->table) + " WHERE rowid = ?1", true);
    plan_->remove.BindInteger(1, rowId);
    session_->StepWrite(plan_->remove);
    if (session_->database.ChangedRows() == 0)
        throw refuse::RowVanished();
}

std::vector<std::int64_t> RowWriter::Identities(const BoundValues& values)
{
    if (!plan_->identities)
        plan_->identities = session_->database.Prepare(plan_->identitiesSql, true);
    Query& query = plan_->identities;
    const ResetAtExit reset(query);
    query.BindAll(values);
    std::vector<std::int64_t> found;
    while (session_->database.Step(query))
        found.push_back(query.Integer(0));
    return found;
}

RowStore::Rows RowWriter::Read(std::span<const std::int64_t> rowIds, const BoundValues& values,
                               FieldRange range, Value* fields)
{
    RowStore::Rows found;
    Visit(rowIds, values, [&](std::size_t row, const Query& query) {
        found.set(row);
        TakeFields(*plan_, query, range, rowIds[row], fields + row * range.count);
    });
    return found;
}

void RowWriter::Visit(std::span<const std::int64_t> rowIds, const BoundValues& values,
                      const Visitor& visit)
{
    const ReadGroup group(*session_);
    if (IsStretch(rowIds))
        return VisitStretch(rowIds, values, visit);
    Query& reader = Reader(plan_->reader, plan_->readerSql, values);
    for (std::size_t row = 0; row < rowIds.size(); ++row) {
        const ResetAtExit reset(reader);
        reader.BindInteger(plan_->readerRowParameter, rowIds[row]);
        if (session_->database.Step(reader))
            visit(row, reader);
    }
}

void RowWriter::VisitStretch(std::span<const std::int64_t> rowIds, const BoundValues& values,
                             const Visitor& visit)
{
    Query& reader = Reader(plan_->stretch, plan_->stretchSql, values);
    const ResetAtExit reset(reader);
    reader.BindInteger(plan_->readerRowParameter, rowIds.front());
    reader.BindInteger(plan_->readerRowParameter + 1, rowIds.back());
    std::size_t row = 0;
    while (session_->database.Step(reader)) {
        const std::int64_t rowId = reader.Integer(static_cast<int>(plan_->fields.size()));
        while (rowIds[row] < rowId)
            ++row;
        if (rowIds[row] == rowId)
            visit(row, reader);
    }
}

Query& RowWriter::Reader(Query& reader, const std::string& sql, const BoundValues& values)
{
    if (!reader)
        reader = session_->database.Prepare(sql, true);
    for (int i = 1; i < plan_->readerRowParameter; ++i)
        reader.Bind(i, values[static_cast<std::size_t>(i) - 1]);
    return reader;
}

void TakeFields(const Plan& plan, const Query& row, FieldRange range, std::int64_t rowId,
                Value* fields)
{
    std::size_t field = range.first;
    try {
        for (; field < range.first + range.count; ++field)
            fields[field - range.first] = row.Get(static_cast<int>(field), plan.fields[field].type);
    } catch (const EngineError& error) {
        throw refuse::WrongCellAt(PlaceOf(plan, field, rowId), error);
    }
}

Query& RowWriter::InsertFor(const std::vector<bool>& set)
{
    Query& query = plan_->inserts[set];
    if (query)
        return query;
    std::string columns;
    std::string places;
    for (std::size_t i = 0; i < set.size(); ++i)
        if (set[i]) {
            columns += (columns.empty() ? "" : ", ") + QuoteName(plan_->columns[i].name);
            places += places.empty() ? "?" : ", ?";
        }
    const std::string table = QuoteName(plan_->table);
    query = session_->database.Prepare(
        columns.empty() ? "INSERT INTO " + table + " DEFAULT VALUES"
                        : "INSERT INTO " + table + " (" + columns + ") VALUES (" + places + ")",
        true);
    return query;
}

Query& RowWriter::UpdateFor(const std::vector<bool>& set)
{
    Query& query = plan_->updates[set];
    if (query)
        return query;
    std::string assignments;
    for (std::size_t i = 0; i < set.size(); ++i)
        if (set[i])
            assignments +=
                (assignments.empty() ? "" : ", ") + QuoteName(plan_->columns[i].name) + " = ?";
    query = session_->database.Prepare(
        "UPDATE " + QuoteName(plan_->table) + " SET " + assignments + " WHERE rowid = ?", true);
    return query;
}

int RowWriter::BindChange(Query& query, const RowChange& change)
{
    int parameter = 0;
    for (std::size_t i = 0; i < change.set.size(); ++i)
        if (change.set[i])
            query.Bind(++parameter, change.values[i]);
    return parameter;
}

}  // namespace clb
