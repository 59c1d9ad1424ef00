#include "desktop/grid/GridMarking.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "desktop/grid/GridCursor.h"
#include "desktop/input/UserEvents.h"

namespace clb {

bool GridMarking::ByKey(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool step = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
    if (held == Qt::ShiftModifier && step && !grid_.Editing()) {
        Mark(cursor_.Beside(event.key() == Qt::Key_Up ? -1 : 1), grid_.Col(), true);
        return true;
    }
    if (grid_.Marks().Count() == 0 || held == Qt::ShiftModifier)
        return false;
    const bool escape = event.key() == Qt::Key_Escape && !grid_.Dirty();
    const bool moves = step || event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown ||
                       event.key() == Qt::Key_Home || event.key() == Qt::Key_End;
    if (escape || moves)
        grid_.Marks().Clear();
    return escape;
}

bool GridMarking::ByClick(const QMouseEvent& event, std::size_t row, std::int32_t column)
{
    const Qt::KeyboardModifiers held = event.modifiers();
    if (event.button() == Qt::LeftButton &&
        (held == Qt::ControlModifier || held == Qt::ShiftModifier)) {
        Mark(row, column != 0 ? column : std::max(grid_.Col(), kFirstColumn),
             held == Qt::ShiftModifier);
        return true;
    }
    // The right button's menu may be about the marked rows.
    const bool marked = row != 0 && row <= grid_.Rows().Count() &&
                        grid_.Marks().Contains(grid_.Rows().Identity(row));
    if (event.button() == Qt::LeftButton || !marked)
        grid_.Marks().Clear();
    return false;
}

void GridMarking::Mark(std::size_t row, std::int32_t column, bool range)
{
    events_.Run([&] {
        if (!takeFocus_() || grid_.Row() == 0 || !cursor_.MayBeCurrent(row))
            return;
        const std::size_t from = grid_.Rows().Identity(grid_.Row());
        if (!cursor_.MoveToShown(row, column))
            return;
        if (range)
            grid_.Marks().Extend(grid_.Rows(), grid_.Row(), from);
        else
            grid_.Marks().Toggle(grid_.Rows(), grid_.Row(), from);
    });
}

}  // namespace clb
