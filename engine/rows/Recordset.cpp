#include "engine/rows/Recordset.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "engine/rows/RecordsetState.h"
#include "engine/storage/Convert.h"
#include "engine/storage/Refusals.h"

namespace clb {

Recordset::Recordset() : state_(std::make_unique<State>()) {}
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(std::string_view sql, Connection& connection, CursorKind, LockKind lock)
{
    if (IsOpen())
        throw refuse::AlreadyOpen();
    Connection::State& session = connection.Internals();
    if (session.trace)
        session.trace(sql);
    OpenUntraced(sql, connection, lock);
}

void Recordset::OpenUntraced(std::string_view sql, Connection& connection, LockKind lock)
{
    state_->sql = sql;
    state_->readOnly = lock == LockKind::ReadOnly;
    state_->session = &connection.Internals();
    try {
        state_->Run();
    } catch (...) {
        state_->Close();
        throw;
    }
}

void Recordset::Close()
{
    state_->Close();
}

bool Recordset::IsOpen() const
{
    return state_ && state_->session != nullptr;
}

void Recordset::Requery()
{
    state_->RequireOpen();
    if (state_->session->trace)
        state_->session->trace(state_->sql);
    try {
        state_->Run();
    } catch (...) {
        state_->Close();
        throw;
    }
}

std::uint64_t Recordset::Generation() const
{
    return state_->generation;
}

const std::vector<Field>& Recordset::Fields() const
{
    return state_->Fields();
}

std::size_t Recordset::FieldIndex(std::string_view name) const
{
    return IndexOfField(state_->Fields(), name);
}

std::size_t IndexOfField(const std::vector<Field>& fields, std::string_view name)
{
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].name == name)
            return i;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].name.size() == name.size() && EqualsIgnoringCase(fields[i].name, name))
            return i;
    throw refuse::NoSuchField();
}

std::int32_t Recordset::RecordCount() const
{
    state_->RequireOpen();
    return static_cast<std::int32_t>(state_->live.Count());
}

bool Recordset::AtBeginning() const
{
    state_->RequireOpen();
    return state_->live.Count() == 0 && state_->edit != State::Edit::Adding;
}

bool Recordset::AtEnd() const
{
    state_->RequireOpen();
    if (state_->edit == State::Edit::Adding)
        return false;
    return state_->live.Count() == 0 || state_->slot == state_->live.Slots();
}

void Recordset::MoveFirst()
{
    state_->RequireOpen();
    state_->SaveEdit();
    if (state_->live.Count() == 0)
        throw refuse::NoCurrentRow();
    state_->slot = state_->live.NextLive(0);
}

void Recordset::MoveNext()
{
    state_->RequireOpen();
    state_->SaveEdit();
    if (state_->slot == state_->live.Slots())
        throw refuse::NoCurrentRow();
    state_->slot = state_->live.NextLive(state_->slot + 1);
}

const Value& Recordset::Get(std::size_t field) const
{
    State& state = *state_;
    if (field >= state.Fields().size())
        throw refuse::NoSuchField();
    if (state.edit == State::Edit::Adding ||
        (state.edit == State::Edit::Changing && state.change.set[field]))
        return state.change.values[field];
    state.RequireRow();
    return state.rows.Values(state.slot)[field];
}

void Recordset::Set(std::size_t field, Value value)
{
    State& state = *state_;
    state.RequireWritable();
    if (field >= state.plan->fields.size())
        throw refuse::NoSuchField();
    const ColumnInfo& column = state.plan->columns[field];
    const bool saved = state.edit != State::Edit::Adding;
    if (column.name.empty() || (column.type.counter && saved))
        throw refuse::FieldNotUpdatable(state.plan->fields[field].name);
    Value converted = ConvertForColumn(std::move(value), column.type, column.name);
    state.BeginChange();
    state.change.values[field] = std::move(converted);
    state.change.set[field] = true;
}

void Recordset::AddNew()
{
    state_->RequireWritable();
    state_->SaveEdit();
    state_->change.Clear(state_->plan->fields.size());
    state_->edit = State::Edit::Adding;
}

void Recordset::Update()
{
    state_->RequireWritable();
    if (state_->edit == State::Edit::None)
        state_->RequireRow();
    state_->SaveEdit();
}

void Recordset::CancelUpdate()
{
    state_->RequireOpen();
    state_->DropEdit();
}

void Recordset::Delete()
{
    state_->RequireWritable();
    state_->DropEdit();
    state_->RequireRow();
    state_->DeleteRow();
}

void Recordset::Find(std::string_view criterion)
{
    State& state = *state_;
    state.RequireOpen();
    const Criterion sought = Criterion::Parse(criterion);
    const std::size_t field = FieldIndex(sought.field);
    state.SaveEdit();
    if (state.live.Count() == 0 || state.slot == state.live.Slots())
        throw refuse::NoCurrentRow();
    state.slot = state.FindFrom(state.slot, sought, field);
}

const Value& Recordset::At(std::size_t row, std::size_t field) const
{
    State& state = *state_;
    if (field >= state.Fields().size())
        throw refuse::NoSuchField();
    if (row >= state.live.Count())
        throw refuse::NoCurrentRow();
    return state.rows.Values(state.live.SlotOf(row))[field];
}

std::size_t Recordset::Identity(std::size_t row) const
{
    state_->RequireOpen();
    if (row >= state_->live.Count())
        throw refuse::NoCurrentRow();
    const std::int64_t rowId = state_->rows.RowId(state_->live.SlotOf(row));
    return state_->plan->updatable ? static_cast<std::size_t>(rowId) : 0;
}

void Recordset::MoveTo(std::size_t row)
{
    state_->RequireOpen();
    if (row > state_->live.Count())
        throw refuse::NoCurrentRow();
    state_->SaveEdit();
    state_->slot = state_->live.SlotOf(row);
}

void Recordset::Reread(std::size_t row)
{
    state_->RequireOpen();
    if (row >= state_->live.Count())
        throw refuse::NoCurrentRow();
    state_->RefreshRow(state_->live.SlotOf(row));
}

std::size_t Recordset::Position() const
{
    state_->RequireOpen();
    if (state_->edit == State::Edit::Adding)
        return state_->live.Count();
    return state_->live.NumberOf(state_->slot);
}

}  // namespace clb
