// Moving the current cell by keys.
#include <QKeyEvent>
#include <algorithm>

#include "desktop/grid/GridView.h"
#include "desktop/input/UserEvents.h"

namespace clb {

namespace {

constexpr int Everything = 1 << 30;
constexpr int WidthStep = 8;  // pixels that a key makes a column wider

}  // namespace

void GridView::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    if (held == Qt::NoModifier && FoldByKey(event->key()))
        return;
    if (ColumnByKey(*event) || Edit(*event) || EditByTyping(*event))
        return;
    const bool moves = held == Qt::NoModifier || held == Qt::ControlModifier;
    if (!moves || !Navigate(event->key(), held == Qt::ControlModifier))
        event->ignore();
}

bool GridView::ColumnByKey(const QKeyEvent& event)
{
    const std::int32_t column = grid_.Col();
    const int width = layout_.CellRect(grid_.Row(), column).width();
    if (width == 0)
        return false;
    if (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_F1) {
        tipPlace_ = layout_.CellRect(grid_.Row(), column).center();
        ShowTip();
        return true;
    }
    if (event.modifiers() != (Qt::ControlModifier | Qt::ShiftModifier))
        return false;
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
            events_.Run([&] {
                grid_.ResizeColumn(column,
                                   width + (event.key() == Qt::Key_Left ? -WidthStep : WidthStep));
            });
            return true;
        case Qt::Key_F: FitColumn(column); return true;
        default: return false;
    }
}

bool GridView::Navigate(int key, bool toEnds)
{
    switch (key) {
        case Qt::Key_Up: return MoveRows(toEnds ? -Everything : -1);
        case Qt::Key_Down: return MoveRows(toEnds ? Everything : 1);
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

bool GridView::MoveTo(std::size_t row, std::int32_t column)
{
    if (row == 0 || column == 0)
        return true;
    events_.Run([&] { MoveToShown(row, column); });
    return true;
}

bool GridView::MoveToShown(std::size_t row, std::int32_t column)
{
    const std::size_t now = grid_.RowNow(row);
    return now != 0 && grid_.MoveTo(now, column);
}

std::size_t GridView::RowFromCurrent(int rows) const
{
    const auto wanted = static_cast<std::ptrdiff_t>(grid_.Row()) + rows;
    const auto last = static_cast<std::ptrdiff_t>(layout_.RowCount());
    return static_cast<std::size_t>(
        std::clamp<std::ptrdiff_t>(wanted, std::min<std::ptrdiff_t>(1, last), last));
}

bool GridView::MoveRows(int rows)
{
    return MoveTo(RowFromCurrent(rows), grid_.Col());
}

bool GridView::MoveColumns(int steps)
{
    return MoveTo(grid_.Row(), layout_.Neighbour(grid_.Col(), steps));
}

bool GridView::MoveCell(int steps)
{
    if (const std::int32_t column = layout_.Neighbour(grid_.Col(), steps))
        return MoveTo(grid_.Row(), column);
    const std::size_t row = RowFromCurrent(steps);
    if (row == grid_.Row() || row == 0)
        return false;
    return MoveTo(row, steps > 0 ? layout_.FirstColumn() : layout_.LastColumn());
}

bool GridView::focusNextPrevChild(bool next)
{
    // Tab walks the cells; beyond the first and the last one it leaves the grid.
    if (!EndEdit() || MoveCell(next ? 1 : -1))
        return true;
    if (next && grid_.Dirty()) {
        // The new row is complete: on to the next one.
        KeepRow();
        return true;
    }
    return QAbstractScrollArea::focusNextPrevChild(next);
}

bool GridView::FoldByKey(int key)
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

int GridView::RowsPerPage() const
{
    return std::max(1, viewport()->height() / layout_.RowHeight() - 1);
}

}  // namespace clb
