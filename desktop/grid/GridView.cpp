#include "desktop/grid/GridView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "desktop/grid/AccessibleGrid.h"
#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridHeader.h"
#include "desktop/grid/GridPainter.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kWidthStep = 8;  // pixels that a key makes a column wider

}  // namespace

GridView::GridView(GridComponent& grid, UserEvents& events, std::function<bool()> takeFocus,
                   QWidget* parent)
    : QAbstractScrollArea(parent),
      grid_(grid),
      events_(events),
      takeFocus_(std::move(takeFocus)),
      header_(new GridHeader(grid, layout_,
                             {[this](std::int32_t column, int width) {
                                  events_.Run([&] { grid_.ResizeColumn(column, width); });
                              },
                              [this](std::int32_t column) { FitColumn(column); }},
                             this)),
      editor_(new CellEditor(grid, *this, [this](const QKeyEvent& key) { return LeaveEdit(key); })),
      empty_(new EmptyState(*this)),
      cursor_(grid, layout_, events, *viewport()),
      editing_(grid, cursor_, *editor_, events),
      tips_(grid, layout_, events, *viewport()),
      announcer_(*this, grid, events)
{
    // A click asks the model for the focus, which may refuse it.
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setMouseTracking(true);
    setFrameShape(QFrame::NoFrame);
    verticalScrollBar()->setFixedWidth(grid_metrics::kScrollBar);
    MeasureFonts();
    grid_.Changed().connect(sigc::track_obj([this] { Sync(); }, *this));
    grid_.RedrawChanged().connect(sigc::track_obj([this](bool on) { RedrawChanged(on); }, *this));
    AccessibleGrid::Install();
    grid_.AfterEdit().connect(sigc::track_obj(
        [this](std::int32_t /*row*/, std::int32_t column) { announcer_.ValueChanged(column); },
        *this));
    Sync();
}

QAccessibleInterface* GridView::MakeAccessible()
{
    return new AccessibleGrid(*this, grid_);
}

void GridView::MeasureFonts()
{
    layout_.RowHeight(fontMetrics().height() + 8);
    layout_.SelectorWidth(grid_metrics::kSelector);
    verticalScrollBar()->setSingleStep(layout_.RowHeight());
    horizontalScrollBar()->setSingleStep(layout_.RowHeight());
}

void GridView::RedrawChanged(bool on)
{
    viewport()->setUpdatesEnabled(on);
    header_->setUpdatesEnabled(on);
    if (!on)
        return;
    Sync();
    announcer_.RowsChanged();
}

void GridView::Sync()
{
    if (!grid_.Redraw())
        return;
    layout_.Take(grid_);
    PlaceHeader();
    UpdateScrollBars();
    const bool moved = shownRow_ != grid_.Row() || shownColumn_ != grid_.Col();
    if (moved) {
        shownRow_ = grid_.Row();
        shownColumn_ = grid_.Col();
        ShowCurrentCell();
    }
    FollowEdit();
    announcer_.Drawn(layout_.RowCount(), layout_.Spans().size(), moved);
    FollowHint();
    header_->update();
    viewport()->update();
}

void GridView::WhenEmpty(std::function<std::optional<EmptyHint>()> hint, EmptyState::Press press)
{
    hint_ = std::move(hint);
    empty_->OnPress(std::move(press));
    FollowHint();
}

void GridView::FollowHint()
{
    if (!hint_ || !grid_.Redraw())
        return;
    QRect room = viewport()->rect();
    room.setTop(layout_.TotalHeight());
    empty_->Follow(hint_(), room);
}

void GridView::FollowEdit()
{
    const bool opens = grid_.Editing() && !editor_->IsOpen();
    if (opens)
        ShowCurrentCell();
    editor_->Follow(grid_.Editing() ? layout_.CellRect(grid_.Row(), grid_.Col()) : QRect());
}

void GridView::UpdateScrollBars()
{
    const QSize inner = viewport()->size();
    const int across = layout_.SelectorWidth() + layout_.TotalWidth() - inner.width();
    const int down = layout_.TotalHeight() - inner.height();
    horizontalScrollBar()->setPageStep(inner.width());
    horizontalScrollBar()->setRange(0, std::max(0, across));
    verticalScrollBar()->setPageStep(inner.height());
    verticalScrollBar()->setRange(0, std::max(0, down));
    layout_.Scroll(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void GridView::ShowCurrentCell()
{
    if (grid_.Row() == 0)
        return;
    const int top = layout_.RowTop(grid_.Row());
    const int below = top + layout_.RowHeight() - viewport()->height();
    QScrollBar& down = *verticalScrollBar();
    if (top < 0)
        down.setValue(down.value() + top);
    else if (below > 0)
        down.setValue(down.value() + below);
    const QRect cell = layout_.CellRect(grid_.Row(), grid_.Col());
    QScrollBar& across = *horizontalScrollBar();
    if (cell.left() < layout_.SelectorWidth())
        across.setValue(across.value() + cell.left() - layout_.SelectorWidth());
    else if (cell.right() > viewport()->width())
        across.setValue(across.value() + cell.right() + 1 - viewport()->width());
}

void GridView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    layout_.Scroll(horizontalScrollBar()->value(), verticalScrollBar()->value());
    FollowEdit();
    header_->update();
    viewport()->update();
}

void GridView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    const int below = layout_.RowTop(grid_.Row()) + layout_.RowHeight();
    const bool wasShown = grid_.Row() != 0 && below <= event->oldSize().height();
    PlaceHeader();
    UpdateScrollBars();
    // A bar that comes below the grid does not cover the current row.
    if (wasShown && below > viewport()->height())
        ShowCurrentCell();
    FollowEdit();
    FollowHint();
}

void GridView::PlaceHeader()
{
    const int height = header_->sizeHint().height();
    setViewportMargins(0, height, 0, 0);
    header_->setGeometry(0, 0, width(), height);
}

void GridView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    if (!grid_.Redraw()) {
        painter.fillRect(event->rect(), GridColors(palette()).base);
        return;
    }
    layout_.Take(grid_);
    GridPainter(painter, grid_, layout_, palette(), hasFocus()).Draw(event->rect());
}

void GridView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    announcer_.FocusMoved();
}

void GridView::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void GridView::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        MeasureFonts();
        Sync();
    }
}

void GridView::mousePressEvent(QMouseEvent* event)
{
    // The right button's menu is about the row below the pointer.
    const bool left = event->button() == Qt::LeftButton;
    if (!left && event->button() != Qt::RightButton)
        return;
    const QPoint place = event->position().toPoint();
    const std::size_t row = layout_.RowAt(place.y());
    std::int32_t column = layout_.ColumnAt(place.x());
    events_.Run([&] {
        if (!takeFocus_() || row == 0)
            return;
        if (column == 0)
            column = std::max(grid_.Col(), 1);
        if (!cursor_.MoveToShown(row, column))
            return;
        const QRect line = layout_.RowRect(row);
        const bool arrow = place.x() >= line.left() && place.x() < line.left() + line.height();
        if (left && arrow && cursor_.OnHeading(grid_.Row()))
            cursor_.ToggleFold(grid_.Row());
    });
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    const std::size_t row = layout_.RowAt(place.y());
    const std::int32_t column = layout_.ColumnAt(place.x());
    if (event->button() != Qt::LeftButton || row == 0 || column == 0)
        return;
    // The first click made the cell current, unless a refused row kept the user where he was.
    if (grid_.Row() != row)
        return;
    if (cursor_.OnHeading(row))
        events_.Run([&] { cursor_.ToggleFold(grid_.RowNow(row)); });
    else if (grid_.Col() == column)
        editing_.Begin();
}

void GridView::FitColumn(std::int32_t column)
{
    events_.Run([&] {
        int width = header_->CaptionWidth(column);
        // Fitting reads only the visible rows, which are drawn anyway.
        std::size_t row = layout_.RowAt(0);
        for (; row != 0 && row <= layout_.RowCount() && layout_.RowTop(row) < viewport()->height();
             ++row) {
            if (grid_.Rows().Kind(row) != GridRowKind::Data)
                continue;
            const QString text = ToQString(grid_.CellText(row, column));
            width = std::max(width,
                             fontMetrics().horizontalAdvance(text) + 2 * GridPainter::kPadding + 2);
        }
        grid_.ResizeColumn(column, width);
    });
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    if (held == Qt::NoModifier && cursor_.FoldByKey(event->key()))
        return;
    if (ColumnByKey(*event) || editing_.ByKey(*event) || editing_.ByTyping(*event))
        return;
    const bool moves = held == Qt::NoModifier || held == Qt::ControlModifier;
    if (!moves || !cursor_.Navigate(event->key(), held == Qt::ControlModifier))
        event->ignore();
}

bool GridView::ColumnByKey(const QKeyEvent& event)
{
    const std::int32_t column = grid_.Col();
    const int width = layout_.CellRect(grid_.Row(), column).width();
    if (width == 0)
        return false;
    if (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_F1) {
        tips_.ShowAt(layout_.CellRect(grid_.Row(), column).center());
        return true;
    }
    if (event.modifiers() != (Qt::ControlModifier | Qt::ShiftModifier))
        return false;
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
            events_.Run([&] {
                grid_.ResizeColumn(
                    column, width + (event.key() == Qt::Key_Left ? -kWidthStep : kWidthStep));
            });
            return true;
        case Qt::Key_F: FitColumn(column); return true;
        default: return false;
    }
}

bool GridView::focusNextPrevChild(bool next)
{
    // Tab goes from cell to cell. Past the first and the last one it leaves the grid.
    if (!editing_.End() || cursor_.MoveCell(next ? 1 : -1))
        return true;
    if (next && grid_.Dirty()) {
        // The new row is complete, so the next one begins.
        cursor_.KeepRow();
        return true;
    }
    return QAbstractScrollArea::focusNextPrevChild(next);
}

bool GridView::LeaveEdit(const QKeyEvent& event)
{
    if (event.key() != Qt::Key_Tab && event.key() != Qt::Key_Backtab)
        return editing_.Leave(event);
    focusNextPrevChild(event.key() == Qt::Key_Tab);
    return true;
}

void GridView::inputMethodEvent(QInputMethodEvent* event)
{
    editing_.ByInputMethod(*event);
}

QVariant GridView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImCursorRectangle)
        return layout_.CellRect(grid_.Row(), grid_.Col())
            .translated(0, viewport()->mapToParent(QPoint()).y());
    return QAbstractScrollArea::inputMethodQuery(query);
}

void GridView::mouseMoveEvent(QMouseEvent* event)
{
    tips_.PointerMoved(event->position().toPoint(), event->buttons() == Qt::NoButton);
}

bool GridView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave)
        tips_.PointerLeft();
    return QAbstractScrollArea::viewportEvent(event);
}

bool GridView::GoTo(std::size_t row, std::int32_t column)
{
    bool there = false;
    events_.Run([&] { there = takeFocus_() && cursor_.MoveToShown(row, column); });
    return there;
}

void GridView::Open()
{
    if (cursor_.OnHeading(grid_.Row()))
        events_.Run([&] { cursor_.ToggleFold(grid_.Row()); });
    else
        editing_.Begin();
}

}  // namespace clb
