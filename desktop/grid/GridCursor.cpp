#include "desktop/grid/GridCursor.h"

#include <QWidget>
#include <algorithm>

#include "desktop/input/UserEvents.h"

namespace clb {

namespace {

constexpr int kEverything = 1 << 30;

}  // namespace

bool GridCursor::Navigate(int key, bool toEnds)
{
    switch (key) {
        case Qt::Key_Up: return MoveRows(toEnds ? -kEverything : -1);
        case Qt::Key_Down: return MoveRows(toEnds ? kEverything : 1);
        case Qt::Key_PageUp: return MoveRows(-RowsPerPage());
        case Qt::Key_PageDown: return MoveRows(RowsPerPage());
        case Qt::Key_Left:
            return toEnds ? MoveTo(grid_.Row(), layout_.FirstColumn()) : MoveColumns(-1);
        case Qt::Key_Right:
            return toEnds ? MoveTo(grid_.Row(), layout_.LastColumn()) : MoveColumns(1);
        case Qt::Key_Home: return MoveTo(toEnds ? 1 : grid_.Row(), layout_.FirstColumn());
        case Qt::Key_End:
            return MoveTo(toEnds ? layout_.RowCount() : grid_.Row(), layout_.LastColumn());
        default: return false;
    }
}

bool GridCursor::MoveTo(std::size_t row, std::int32_t column)
{
    if (row == 0 || column == 0)
        return true;
    events_.Run([&] { MoveToShown(row, column); });
    return true;
}

bool GridCursor::MoveToShown(std::size_t row, std::int32_t column)
{
    const std::size_t now = grid_.RowNow(row);
    return now != 0 && grid_.MoveTo(now, column);
}

std::size_t GridCursor::RowFromCurrent(int rows) const
{
    const auto wanted = static_cast<std::ptrdiff_t>(grid_.Row()) + rows;
    const auto last = static_cast<std::ptrdiff_t>(layout_.RowCount());
    const auto row = static_cast<std::size_t>(
        std::clamp<std::ptrdiff_t>(wanted, std::min<std::ptrdiff_t>(1, last), last));
    // A footer is between two rows that can become current, or between a heading and the new row.
    return OnFooter(row) ? (rows < 0 ? row - 1 : row + 1) : row;
}

bool GridCursor::OnFooter(std::size_t row) const
{
    return row != 0 && row <= grid_.Rows().Count() &&
           grid_.Rows().Kind(row) == GridRowKind::GroupFooter;
}

bool GridCursor::MayBeCurrent(std::size_t row) const
{
    return row != 0 && row <= grid_.Rows().Count() && !OnFooter(row);
}

bool GridCursor::MoveRows(int rows)
{
    return MoveTo(RowFromCurrent(rows), grid_.Col());
}

bool GridCursor::MoveColumns(int steps)
{
    return MoveTo(grid_.Row(), layout_.Neighbour(grid_.Col(), steps));
}

bool GridCursor::MoveCell(int steps)
{
    if (const std::int32_t column = layout_.Neighbour(grid_.Col(), steps))
        return MoveTo(grid_.Row(), column);
    const std::size_t row = RowFromCurrent(steps);
    if (row == grid_.Row() || row == 0)
        return false;
    return MoveTo(row, steps > 0 ? layout_.FirstColumn() : layout_.LastColumn());
}

void GridCursor::KeepRow()
{
    events_.RunOnRow([&] {
        const std::size_t row = grid_.Row();
        if (row == 0)
            return;
        const bool fresh = grid_.Rows().Kind(row) == GridRowKind::NewRow;
        if (!grid_.Update())
            return;
        if (fresh)
            grid_.MoveTo(grid_.Rows().NewRow(), layout_.FirstColumn());
        else
            grid_.MoveTo(RowFromCurrent(1), grid_.Col());
    });
}

bool GridCursor::OnHeading(std::size_t row) const
{
    return row != 0 && grid_.Rows().Kind(row) == GridRowKind::GroupHeading;
}

bool GridCursor::FoldByKey(int key)
{
    const std::size_t row = grid_.Row();
    if (!OnHeading(row))
        return false;
    const bool folded = grid_.Rows().Folded(row);
    switch (key) {
        case Qt::Key_Left:
        case Qt::Key_Minus:
            if (folded)
                return key == Qt::Key_Minus;
            break;
        case Qt::Key_Right:
        case Qt::Key_Plus:
            if (!folded)
                return key == Qt::Key_Plus;
            break;
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter: break;
        default: return false;
    }
    events_.Run([&] { ToggleFold(grid_.RowNow(row)); });
    return true;
}

void GridCursor::ToggleFold(std::size_t row)
{
    if (row == 0)
        return;
    grid_.Fold(row, !grid_.Rows().Folded(row));
}

int GridCursor::RowsPerPage() const
{
    return std::max(1, viewport_.height() / layout_.RowHeight() - 1);
}

}  // namespace clb
