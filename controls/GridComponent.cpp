// The current cell: how it moves, and how it stays in its row when the rows are read again.

#include "controls/GridComponent.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace clb {

void GridComponent::ColumnsGo()
{
    NumbersReported();
    marks_.Clear();
    // There is no current row until its cells are those of the new columns.
    row_ = 0;
    edited_.Clear();
    entry_.Close();
}

void GridComponent::RowsBound()
{
    const std::size_t first = BoundRows().FirstData();
    StandOn(first != 0 ? first : BoundRows().NewRow(), kFirstColumn);
}

void GridComponent::TakeRows()
{
    NumbersReported();
    const NoRow none(row_);
    BoundRows().Rebuild();
}

bool GridComponent::SortBy(GridSort sort)
{
    if (!Update())
        return false;
    NumbersReported();
    const GridSpot spot = CurrentSpot();
    {
        const NoRow none(row_);
        BoundRows().SortBy(sort, [this, sort](std::size_t row) { return Fetch(row, sort.column); });
    }
    row_ = BoundRows().PastFooter(FindSpot(BoundRows(), spot));
    LoadRow();
    Touch();
    return true;
}

void GridComponent::RefetchRows()
{
    if (!Source())
        return;
    RequeryOrUnbind();
    TakeRows();
    RowsBound();
}

void GridComponent::ReadRowsAnew()
{
    if (!Source() || Editing() || Dirty())
        return;
    std::vector<GridSpot> reported = reported_.Take(BoundRows());
    RequeryOrUnbind();
    Freshen();
    reported_.PutBack(std::move(reported));
    Touch();
}

void GridComponent::Freshen()
{
    if (!BoundRows().Stale())
        return;
    const GridSpot spot = CurrentSpot();
    entry_.Close();
    TakeRows();
    row_ = BoundRows().PastFooter(FindSpot(BoundRows(), spot));
    LoadRow();
}

GridComponent::Meanwhile GridComponent::RereadRow()
{
    Meanwhile found;
    const GridRows& rows = BoundRows();
    if (row_ == 0 || rows.Kind(row_) != GridRowKind::Data)
        return found;
    found.gone = !Source()->Reread(rows.Record(row_));
    if (!found.gone)
        found.columns = edited_.Follow(rows, row_, Columns());
    Touch();
    return found;
}

void GridComponent::TakeStored(std::int32_t column)
{
    edited_.TakeStored(column);
    Touch();
}

bool GridComponent::Fold(std::size_t row, bool folded)
{
    GridRows& rows = BoundRows();
    if (rows.Folded(row) == folded || rows.Kind(row) != GridRowKind::GroupHeading)
        return true;
    const std::string group = rows.GroupValue(row);
    if (!Update())
        return false;
    // Saving may have moved the headings, or left the group without rows.
    row = rows.OfGroup(GridRowKind::GroupHeading, group);
    if (row == 0)
        return true;
    NumbersReported();
    const bool onHeading = row_ == row;
    row_ = rows.Fold(row, folded, row_);
    if (row_ == row && !onHeading) {
        LoadRow();
        ReportPlace();
    }
    Touch();
    return true;
}

void GridComponent::StandOn(std::size_t row, std::int32_t column)
{
    row_ = BoundRows().PastFooter(std::min(row, BoundRows().Count()));
    col_ = column;
    LoadRow();
    Touch();
}

void GridComponent::ReportPlace()
{
    rowColChange_.emit(static_cast<std::int32_t>(row_), col_);
}

void GridComponent::Col(std::int32_t column)
{
    Columns().Item(column);
    if (column != col_)
        MoveTo(row_, column);
}

bool GridComponent::MoveTo(std::size_t row, std::int32_t column)
{
    Freshen();
    Columns().Item(column);
    static_cast<void>(BoundRows().Kind(row));
    if (!EndEdit())
        return false;
    if (row != row_) {
        // Saving the row that is left may move the others, so the one that is meant is found again.
        std::optional<GridSpot> meant;
        if (Dirty())
            meant = SpotOf(BoundRows(), row, column);
        if (!Update())
            return false;
        StandOn(meant ? FindSpot(BoundRows(), *meant) : row, column);
    } else if (column != col_) {
        col_ = column;
        Touch();
    } else {
        return true;
    }
    ReportPlace();
    return true;
}

void GridComponent::MoveToRowKey(const Value& key)
{
    const std::size_t row = IsNull(key) ? BoundRows().NewRow() : BoundRows().OfKey(key);
    if (row == 0)
        throw RuntimeError(errors::ElementNotFound, "No row has the key " + ToText(key));
    MoveTo(row, col_);
}

void GridComponent::ReturnTo(const GridSpot& spot)
{
    const std::int32_t column =
        std::clamp(spot.column, kFirstColumn, std::max(Columns().Count(), kFirstColumn));
    if (const std::size_t row = FindSpot(BoundRows(), spot); row != 0)
        MoveTo(row, column);
}

std::int32_t GridComponent::Position()
{
    Freshen();
    return row_ == 0 ? 1 : BoundRows().Position(row_);
}

}  // namespace clb
