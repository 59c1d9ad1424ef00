// The tip of the cell on which the pointer rests.
#include <QMouseEvent>
#include <QTimerEvent>

#include "base/RuntimeError.h"
#include "desktop/grid/CellTip.h"
#include "desktop/grid/GridPainter.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

void GridView::mouseMoveEvent(QMouseEvent* event)
{
    tipPlace_ = event->position().toPoint();
    cell_tip::Hide();
    if (grid_.CellTips() != 0 && event->buttons() == Qt::NoButton)
        tipTimer_.start(grid_.TipDelay(), this);
}

bool GridView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave)
        tipTimer_.stop();
    return QAbstractScrollArea::viewportEvent(event);
}

void GridView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != tipTimer_.timerId())
        return QAbstractScrollArea::timerEvent(event);
    tipTimer_.stop();
    ShowTip();
}

void GridView::ShowTip()
{
    const std::size_t row = layout_.RowAt(tipPlace_.y());
    const std::int32_t column = layout_.ColumnAt(tipPlace_.x());
    if (row == 0 || column == 0 || !grid_.Redraw())
        return;
    events_.Run([&] {
        const std::size_t now = grid_.RowNow(row);
        if (now == 0)
            return;
        // A pointer that rests is no command: what cannot be read has no tip, and no box either.
        try {
            if (const std::string text = TipOf(now, column); !text.empty())
                cell_tip::Show(*viewport(), tipPlace_, layout_.CellRect(now, column), text);
        } catch (const RuntimeError&) {
            return;
        }
    });
}

std::string GridView::TipOf(std::size_t row, std::int32_t column)
{
    if (const auto text = grid_.CellTip(row, column))
        return *text;
    if (grid_.Rows().Kind(row) != GridRowKind::Data)
        return {};
    // What the cell has no room for.
    const std::string text = grid_.CellText(row, column);
    const int room = layout_.CellRect(row, column).width() - 2 * GridPainter::Padding;
    return fontMetrics().horizontalAdvance(ToQString(text)) > room ? text : std::string();
}

}  // namespace clb
