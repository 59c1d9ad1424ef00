#include "desktop/grid/GridView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "desktop/grid/AccessibleGrid.h"
#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridHeader.h"
#include "desktop/grid/GridPainter.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Announcement.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

/// all, page: pixels of everything and of what is in view.
void SetRange(QScrollBar& bar, int all, int page)
{
    bar.setPageStep(page);
    bar.setRange(0, std::max(0, all - page));
}

/// Scrolls a part into view. begin: where it begins, negative before the view. beyond: how far it
/// reaches beyond the end of the view.
void BringIntoView(QScrollBar& bar, int begin, int beyond)
{
    if (begin < 0)
        bar.setValue(bar.value() + begin);
    else if (beyond > 0)
        bar.setValue(bar.value() + beyond);
}

}  // namespace

GridView::GridView(GridComponent& grid, UserEvents& events, std::function<bool()> takeFocus,
                   QWidget* parent)
    : QAbstractScrollArea(parent),
      grid_(grid),
      events_(events),
      takeFocus_(std::move(takeFocus)),
      fit_(
          grid,
          [this](std::int32_t column) {
              return ColumnFit::Heading{header_->LeastWidth(column), header_->CaptionWidth(column)};
          }),
      header_(
          new GridHeader(grid, layout_,
                         {[this](std::int32_t column, int width) { widths_.Set(column, width); },
                          [this](std::int32_t column) { widths_.Fit(column, *header_); },
                          [this](std::int32_t column) { sorting_.By(column); }},
                         this)),
      editor_(new CellEditor(grid, *this, [this](const QKeyEvent& key) { return LeaveEdit(key); })),
      empty_(new EmptyState(*this)),
      cursor_(grid, layout_, events, *viewport()),
      editing_(grid, cursor_, *editor_, events),
      marking_(grid, cursor_, events, takeFocus_),
      tips_(grid, layout_, events, *viewport()),
      announcer_(*this, grid, events),
      zoom_(*this, *viewport()),
      widths_(grid, layout_, events, *viewport()),
      sorting_(grid, events, [this](const QString& order) {
          ShowCurrentCell();
          Announce(*this, order);
      })
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
    grid_.Marks().Changed().connect(sigc::track_obj([this] { viewport()->update(); }, *this));
    AccessibleGrid::Install();
    grid_.AfterEdit().connect(sigc::track_obj(
        [this](std::int32_t /*row*/, std::int32_t column) { announcer_.ValueChanged(column); },
        *this));
    grid_.RowAdded().connect(sigc::track_obj([this](std::size_t row) { addedRow_ = row; }, *this));
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
    fit_.Forget();
    Sync();
    announcer_.RowsChanged();
}

void GridView::Sync()
{
    if (!grid_.Redraw())
        return;
    TakeLayout();
    FitLater();
    PlaceHeader();
    UpdateScrollBars();
    const bool moved = shownRow_ != grid_.Row() || shownColumn_ != grid_.Col();
    if (moved)
        FollowMove();
    FollowEdit();
    announcer_.Drawn(layout_.RowCount(), layout_.Spans().size(), moved);
    tips_.RowsDrawn();
    FollowHint();
    header_->update();
    viewport()->update();
}

void GridView::FollowMove()
{
    shownRow_ = grid_.Row();
    shownColumn_ = grid_.Col();
    ShowCurrentCell();
    // The row that was saved stays in sight while the next new row is not typed into yet.
    const std::size_t added = std::exchange(addedRow_, 0);
    if (added != 0 && grid_.Position() == 1)
        ShowRow(added);
}

void GridView::TakeLayout()
{
    const int room = viewport()->width() - layout_.SelectorWidth();
    const ColumnFit::Drawn drawn = fit_.In(room, fontMetrics());
    const bool moved = std::exchange(drawnWidths_, drawn.columns) != drawn.columns;
    layout_.Take(grid_, drawn.columns);
    layout_.SideWidth(drawn.beside);
    if (moved)
        columnsMoved_();
}

/// The cells are measured once before the next painting, however often the grid changes until then.
void GridView::FitLater()
{
    if (std::exchange(fitsSoon_, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { FitToCells(); }, Qt::QueuedConnection);
}

void GridView::FitToCells()
{
    fitsSoon_ = false;
    if (!grid_.Redraw() || !fit_.Measure(layout_, viewport()->height(), fontMetrics()))
        return;
    TakeLayout();
    PlaceHeader();
    UpdateScrollBars();
    FollowEdit();
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
    announcer_.HintShown();
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
    SetRange(*horizontalScrollBar(), layout_.SelectorWidth() + layout_.TotalWidth(),
             viewport()->width());
    SetRange(*verticalScrollBar(), layout_.TotalHeight(), viewport()->height());
    layout_.Scroll(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void GridView::ShowCurrentCell()
{
    if (grid_.Row() == 0)
        return;
    ShowRow(grid_.Row());
    const QRect cell = layout_.CellRect(grid_.Row(), grid_.Col());
    BringIntoView(*horizontalScrollBar(), cell.left() - layout_.SelectorWidth(),
                  cell.right() + 1 - viewport()->width());
}

void GridView::ShowRow(std::size_t row)
{
    const int top = layout_.RowTop(row);
    BringIntoView(*verticalScrollBar(), top, top + layout_.RowHeight() - viewport()->height());
}

void GridView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    layout_.Scroll(horizontalScrollBar()->value(), verticalScrollBar()->value());
    columnsMoved_();
    tips_.RowsDrawn();
    FitLater();
    FollowEdit();
    header_->update();
    viewport()->update();
}

void GridView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    const int below = layout_.RowTop(grid_.Row()) + layout_.RowHeight();
    const bool wasShown = grid_.Row() != 0 && below <= event->oldSize().height();
    TakeLayout();
    FitLater();
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
    TakeLayout();
    GridPainter(painter, grid_, layout_, palette(), hasFocus()).Draw(event->rect());
}

void GridView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    announcer_.FocusCame();
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
        fit_.ForgetAll();
        MeasureFonts();
        Sync();
        ShowCurrentCell();
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
    if (marking_.ByClick(*event, row, column))
        return;
    events_.Run([&] {
        if (!takeFocus_() || !cursor_.MayBeCurrent(row))
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
    if (event->button() != Qt::LeftButton || row == 0)
        return;
    // The first click made the cell current, unless a refused row kept the user where he was.
    if (grid_.Row() != row)
        return;
    if (column == 0) {
        if (openRow_ && layout_.SelectorRect(row).contains(place))
            openRow_();
    } else if (cursor_.OnHeading(row))
        events_.Run([&] { cursor_.ToggleFold(grid_.RowNow(row)); });
    else if (grid_.Col() == column)
        editing_.Begin();
}

void GridView::contextMenuEvent(QContextMenuEvent* event)
{
    if (menu_)
        menu_(event->globalPos());
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    if (marking_.ByKey(*event))
        return;
    if (held == Qt::NoModifier && cursor_.FoldByKey(event->key()))
        return;
    if (tips_.ByKey(*event) || sorting_.ByKey(*event) || widths_.ByKey(*event, *header_) ||
        editing_.ByKey(*event) || editing_.ByTyping(*event))
        return;
    const bool moves = held == Qt::NoModifier || held == Qt::ControlModifier;
    if (!moves || !cursor_.Navigate(event->key(), held == Qt::ControlModifier))
        event->ignore();
}

bool GridView::focusNextPrevChild(bool next)
{
    // Tab goes from cell to cell. Past the first and the last one it leaves the grid. The links of
    // the hint ask here, too.
    if (empty_->isAncestorOf(QApplication::focusWidget()))
        return QAbstractScrollArea::focusNextPrevChild(next);
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
    events_.Run([&] {
        there = takeFocus_() && cursor_.MayBeCurrent(row) && cursor_.MoveToShown(row, column);
    });
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
