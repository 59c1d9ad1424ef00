#include "engine/rows/RecordsetState.h"

#include <algorithm>
#include <utility>

#include "engine/storage/Refusals.h"

namespace clb {
namespace {

/// Runs the read. Returns null if the row no longer exists.
template <typename Read>
const Value* IfThere(const Read& read)
{
    try {
        return read();
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::RowVanished)
            throw;
        return nullptr;
    }
}

}  // namespace

void Recordset::State::RequireOpen() const
{
    if (!session)
        throw refuse::Closed();
}

void Recordset::State::RequireWritable() const
{
    RequireOpen();
    if (readOnly || !plan->updatable)
        throw refuse::SetNotUpdatable();
}

void Recordset::State::RequireRow() const
{
    if (!live.IsLive(slot))
        throw refuse::NoCurrentRow();
}

const std::vector<Field>& Recordset::State::Fields() const
{
    RequireOpen();
    return readOnly ? plan->readOnlyFields : plan->fields;
}

void Recordset::State::Run()
{
    const ReadGroup group(*session);
    auto entry = session->PrepareSelect(sql);
    plan = std::move(entry.plan);
    values = std::move(entry.values);
    edit = Edit::None;
    searched.clear();
    live.Clear();
    rows.Start(plan->fields.size(), Fetcher({0, plan->fields.size()}));
    slot = 0;
    ++generation;
    Load();
}

/// Returns nothing if the rows have no identity by which they could be read again.
RowStore::Fetch Recordset::State::Fetcher(FieldRange range) const
{
    if (!plan->carriesRowId)
        return nullptr;
    return [writer = RowWriter(*session, *plan), bound = values.get(), range](
               std::span<const std::int64_t> rowIds, Value* fields) mutable {
        return writer.Read(rowIds, *bound, range, fields);
    };
}

/// Sorting many whole rows takes longer than reading each by its identity.
bool Recordset::State::LoadIdentities()
{
    if (plan->identitiesSql.empty())
        return false;
    const std::vector<std::int64_t> found = RowWriter(*session, *plan).Identities(*values);
    if (!found.empty() && found.size() <= RowStore::kKeptAtOpening)
        return false;
    for (const std::int64_t rowId : found) {
        rows.Append(rowId);
        live.Append();
    }
    return true;
}

void Recordset::State::Load()
{
    if (LoadIdentities())
        return;
    Query& query = plan->query;
    const ResetAtExit reset(query);
    query.BindAll(*values);
    const int identity = static_cast<int>(plan->fields.size());
    while (session->database.Step(query)) {
        const std::int64_t rowId = plan->carriesRowId ? query.Integer(identity) : 0;
        if (rows.KeepsMore())
            TakeFields(*plan, query, {0, plan->fields.size()}, rowId, rows.AppendFilled(rowId));
        else
            rows.Append(rowId);
        live.Append();
    }
}

void Recordset::State::Close()
{
    if (!session)
        return;
    session = nullptr;
    searched.clear();
    live.Clear();
    rows.Start(0, nullptr);
    plan.reset();
    values.reset();
    ++generation;
}

void Recordset::State::BeginChange()
{
    if (edit != Edit::None)
        return;
    RequireRow();
    change.Clear(plan->fields.size());
    edit = Edit::Changing;
}

void Recordset::State::SaveEdit()
{
    if (edit == Edit::Adding)
        SaveNew();
    else if (edit == Edit::Changing)
        SaveChanged();
}

void Recordset::State::SaveNew()
{
    RowWriter writer(*session, *plan);
    const std::int64_t rowId = writer.Insert(change);
    edit = Edit::None;
    live.Append();
    try {
        // If every field was set and there are no triggers, the table holds exactly these values.
        if (plan->plain && change.All() && !plan->triggers)
            std::move(change.values.begin(), change.values.end(), rows.AppendFilled(rowId));
        else
            rows.Append(rowId);
    } catch (...) {
        live.DropLast();
        throw;
    }
    slot = live.Slots() - 1;
    AddToSearched(slot);
}

void Recordset::State::SaveChanged()
{
    RowWriter writer(*session, *plan);
    if (change.Any())
        writer.Update(rows.RowId(slot), change);
    edit = Edit::None;
    RefreshRow(slot);
}

void Recordset::State::RefreshRow(std::size_t at)
{
    RemoveFromSearched(at);
    rows.Refresh(at);
    AddToSearched(at);
}

void Recordset::State::DeleteRow()
{
    RowWriter(*session, *plan).Delete(rows.RowId(slot));
    live.Remove(slot);
}

std::size_t Recordset::State::FindFrom(std::size_t from, const Criterion& criterion,
                                       std::size_t field)
{
    const FieldType type = plan->fields[field].type;
    criterion.RequireType(type);
    if (!criterion.like && criterion.operation == Operator::Equal) {
        const auto sought = criterion.Sought(type);
        return sought ? FindEqual(from, *sought, field) : live.Slots();
    }
    for (std::size_t at = live.NextLive(from); at < live.Slots(); at = live.NextLive(at + 1))
        if (const Value* row = ValuesIfThere(at); row && criterion.Matches(row[field]))
            return at;
    return live.Slots();
}

std::size_t Recordset::State::FindEqual(std::size_t from, const Value& sought, std::size_t field)
{
    Searched& in = SearchedField(field);
    const std::size_t found = in.index.Find(HashOf(sought), from, [&](std::size_t at) {
        const Value* value = live.IsLive(at) ? ValueIfThere(at, in) : nullptr;
        return value != nullptr && *value == sought;
    });
    return found == FindIndex::kNotFound ? live.Slots() : found;
}

const Value* Recordset::State::ValuesIfThere(std::size_t at)
{
    return IfThere([&] { return rows.Values(at); });
}

const Value* Recordset::State::ValueIfThere(std::size_t at, Searched& in)
{
    return IfThere([&] {
        const bool whole = !plan->carriesRowId || rows.Holds(at);
        return whole ? rows.Values(at) + in.field : in.column.Values(at);
    });
}

Recordset::State::Searched& Recordset::State::SearchedField(std::size_t field)
{
    searched.resize(plan->fields.size());
    if (searched[field])
        return *searched[field];
    auto made = std::make_unique<Searched>();
    made->field = field;
    made->column.Start(1, Fetcher({field, 1}));
    made->index.Reserve(live.Count());
    for (std::size_t at = 0; at < rows.Slots(); ++at)
        made->column.Append(rows.RowId(at));
    for (std::size_t at = live.NextLive(0); at < live.Slots(); at = live.NextLive(at + 1))
        if (const Value* value = ValueIfThere(at, *made))
            made->index.Add(HashOf(*value), at);
    searched[field] = std::move(made);
    return *searched[field];
}

void Recordset::State::AddToSearched(std::size_t at)
{
    try {
        for (const auto& in : searched)
            if (in)
                AddTo(*in, at);
    } catch (const EngineError&) {
        throw;
    } catch (...) {
        searched.clear();  // the next search makes them again
        throw;
    }
}

void Recordset::State::AddTo(Searched& in, std::size_t at)
{
    if (at == in.column.Slots())
        in.column.Append(rows.RowId(at));
    else if (in.column.Holds(at))
        in.column.Refresh(at);
    in.index.Add(HashOf(rows.Values(at)[in.field]), at);
}

void Recordset::State::RemoveFromSearched(std::size_t at)
{
    for (const auto& in : searched)
        if (in)
            in->index.Remove(HashOf(rows.Values(at)[in->field]), at);
}

}  // namespace clb
