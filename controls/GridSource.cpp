#include "controls/GridSource.h"

#include "base/RuntimeError.h"
#include "engine/storage/EngineError.h"

namespace clb {

std::size_t RecordsetSource::Save(std::size_t row, const std::vector<Change>& changes)
{
    if (row == Count())
        records_.AddNew();
    else
        records_.MoveTo(row);
    try {
        for (const auto& [field, value] : changes)
            records_.Set(field, value);
        records_.Update();
    } catch (...) {
        if (records_.IsOpen())
            records_.CancelUpdate();
        throw;
    }
    return records_.Position();
}

bool RecordsetSource::Reread(std::size_t row)
{
    try {
        records_.Reread(row);
        return true;
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::RowVanished)
            throw;
        return false;
    }
}

void RecordsetSource::Delete(std::size_t row)
{
    records_.MoveTo(row);
    records_.Delete();
}

void GridArray::Fields(std::vector<Field> fields)
{
    fields_ = std::move(fields);
    Clear();
}

GridArray::Row GridArray::NewRow()
{
    return {++lastIdentity_, std::vector<Value>(fields_.size())};
}

void GridArray::Add(const std::vector<Value>& values)
{
    Row row = NewRow();
    for (std::size_t field = 0; field < values.size(); ++field)
        Write(row, field, values[field]);
    rows_.push_back(std::move(row));
    ++generation_;
}

void GridArray::Clear()
{
    rows_.clear();
    ++generation_;
}

const GridArray::Row& GridArray::RowAt(std::size_t row) const
{
    if (row >= rows_.size())
        throw RuntimeError(errors::SubscriptOutOfRange, "Subscript out of range");
    return rows_[row];
}

void GridArray::Write(Row& row, std::size_t field, const Value& value) const
{
    if (field >= fields_.size())
        throw RuntimeError(errors::SubscriptOutOfRange, "Subscript out of range");
    row.values[field] = Convert(value, fields_[field].type);
}

const Value& GridArray::At(std::size_t row, std::size_t field) const
{
    const Row& found = RowAt(row);
    if (field >= fields_.size())
        throw RuntimeError(errors::SubscriptOutOfRange, "Subscript out of range");
    return found.values[field];
}

std::size_t GridArray::Identity(std::size_t row) const
{
    return RowAt(row).identity;
}

std::size_t GridArray::Save(std::size_t row, const std::vector<Change>& changes)
{
    Row written = row == rows_.size() ? NewRow() : RowAt(row);
    for (const auto& [field, value] : changes)
        Write(written, field, value);
    if (row == rows_.size())
        rows_.push_back(std::move(written));
    else
        rows_[row] = std::move(written);
    return row;
}

void GridArray::Delete(std::size_t row)
{
    static_cast<void>(RowAt(row));
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
}

}  // namespace clb
