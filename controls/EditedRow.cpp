#include "controls/EditedRow.h"

#include <algorithm>
#include <utility>

namespace clb {

void EditedRow::Clear()
{
    cells_.clear();
    stored_.clear();
    changed_.clear();
    dirty_ = false;
    key_ = Null{};
    identity_ = 0;
}

void EditedRow::Load(const GridRows& rows, std::size_t row, const GridColumns& columns)
{
    const auto count = static_cast<std::size_t>(columns.Count());
    changed_.assign(count, false);
    dirty_ = false;
    stored_.assign(count, Null{});
    cells_.assign(count, Null{});
    key_ = Null{};
    identity_ = 0;
    if (row == 0 || rows.Kind(row) != GridRowKind::Data)
        return;
    key_ = rows.Key(row);
    identity_ = rows.Identity(row);
    for (std::int32_t column = 1; column <= columns.Count(); ++column)
        cells_[Index(column)] = rows.Stored(row, column);
    stored_ = cells_;
}

Value EditedRow::Cell(std::int32_t column) const
{
    return Index(column) < cells_.size() ? cells_[Index(column)] : Value{};
}

void EditedRow::Write(std::int32_t column, Value value)
{
    cells_.at(Index(column)) = std::move(value);
    changed_[Index(column)] = true;
    dirty_ = true;
}

void EditedRow::TakeStored(std::int32_t column)
{
    cells_.at(Index(column)) = stored_.at(Index(column));
    changed_[Index(column)] = false;
    dirty_ = std::find(changed_.begin(), changed_.end(), true) != changed_.end();
}

std::vector<IGridSource::Change> EditedRow::Changes(const GridColumns& columns) const
{
    std::vector<IGridSource::Change> changes;
    for (std::size_t at = 0; at < cells_.size(); ++at)
        if (changed_[at] && columns.Item(static_cast<std::int32_t>(at + 1)).updatable)
            changes.emplace_back(at, cells_[at]);
    return changes;
}

std::vector<std::int32_t> EditedRow::Follow(const GridRows& rows, std::size_t row,
                                            const GridColumns& columns)
{
    std::vector<std::int32_t> others;
    const auto bound = static_cast<std::int32_t>(stored_.size());
    for (std::int32_t column = 1; column <= bound; ++column) {
        const Value now = rows.Stored(row, column);
        if (now == stored_[Index(column)])
            continue;
        if (columns.Item(column).updatable)
            others.push_back(column);
        stored_[Index(column)] = now;
        if (!changed_[Index(column)])
            cells_[Index(column)] = now;
    }
    return others;
}

}  // namespace clb
