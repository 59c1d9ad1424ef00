#include "desktop/grid/GridTips.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTimerEvent>
#include <QToolTip>
#include <QWidget>

#include "base/RuntimeError.h"
#include "desktop/grid/CellTip.h"
#include "desktop/grid/GridPainter.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Announcement.h"
#include "desktop/look/TextConvert.h"

namespace clb {

void GridTips::PointerMoved(const QPoint& place, bool rests)
{
    place_ = place;
    Hide();
    if (grid_.CellTips() != 0 && rests)
        timer_.start(grid_.TipDelay(), this);
}

void GridTips::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != timer_.timerId())
        return QObject::timerEvent(event);
    timer_.stop();
    ShowAt(place_);
}

void GridTips::ShowAt(const QPoint& place)
{
    const std::size_t row = layout_.RowAt(place.y());
    const std::int32_t column = layout_.ColumnAt(place.x());
    if (row == 0 || column == 0 || !grid_.Redraw())
        return;
    events_.Run([&] {
        const std::size_t now = grid_.RowNow(row);
        if (now == 0)
            return;
        // Resting the pointer is not a command, so an error shows no tip and no message box either.
        try {
            ShowTip(place, now, column);
        } catch (const RuntimeError&) {
            return;
        }
    });
}

bool GridTips::ByKey(const QKeyEvent& event)
{
    const QRect cell = layout_.CellRect(grid_.Row(), grid_.Col());
    if (cell.isEmpty() || event.modifiers() != Qt::ControlModifier || event.key() != Qt::Key_F1)
        return false;
    const QScopedValueRollback guard(reads_, true);
    ShowAt(cell.center());
    return true;
}

void GridTips::ShowTip(const QPoint& place, std::size_t row, std::int32_t column)
{
    const std::string own = TipOf(row, column);
    const std::string text = own.empty() ? grid_.FigureBeside(row, column) : own;
    if (text.empty())
        return;
    cell_ = layout_.CellRect(row, column);
    row_ = SpotOf(grid_.Rows(), row, column);
    cell_tip::Show(viewport_, place, cell_, text,
                   own.empty() ? cell_tip::Grey(QToolTip::palette()) : QColor());
    if (reads_)
        Announce(viewport_, ToQString(text));
}

void GridTips::RowsDrawn()
{
    if (row_.row == 0)
        return;
    const bool there =
        row_.row <= grid_.Rows().Count() && grid_.Rows().Identity(row_.row) == row_.identity &&
        grid_.Rows().Key(row_.row) == row_.key && layout_.CellRect(row_.row, row_.column) == cell_;
    if (!there)
        Hide();
}

void GridTips::Hide()
{
    row_ = {};
    cell_tip::Hide();
}

std::string GridTips::TipOf(std::size_t row, std::int32_t column)
{
    if (const auto text = grid_.CellTip(row, column))
        return *text;
    if (grid_.Rows().Kind(row) != GridRowKind::Data)
        return {};
    // The cell's text, if the cell has no room for it.
    const std::string text = grid_.CellText(row, column);
    const int room = layout_.CellRect(row, column).width() - 2 * GridPainter::kPadding;
    return viewport_.fontMetrics().horizontalAdvance(ToQString(text)) > room ? text : std::string();
}

}  // namespace clb
