#include "desktop/GridView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>
#include <algorithm>

#include "desktop/CellTip.h"
#include "desktop/GridHeader.h"
#include "desktop/GridPainter.h"
#include "desktop/TextConvert.h"
#include "desktop/UserEvents.h"

namespace clb {

GridView::GridView(GridComponent& grid, UserEvents& events, std::function<bool()> takeFocus,
                   QWidget* parent)
    : QAbstractScrollArea(parent),
      grid_(grid),
      events_(events),
      takeFocus_(std::move(takeFocus)),
      header_(new GridHeader(grid, layout_, this))
{
    // The mouse gives the focus by way of the model, which may refuse it.
    setFocusPolicy(Qt::TabFocus);
    viewport()->setMouseTracking(true);
    setFrameShape(QFrame::NoFrame);
    verticalScrollBar()->setFixedWidth(grid_metrics::ScrollBar);
    MeasureFonts();
    grid_.Changed().connect(sigc::track_obj([this] { Sync(); }, *this));
    grid_.RedrawChanged().connect(sigc::track_obj([this](bool on) { RedrawChanged(on); }, *this));
    Sync();
}

void GridView::MeasureFonts()
{
    layout_.RowHeight(fontMetrics().height() + 8);
    layout_.SelectorWidth(grid_metrics::Selector);
    verticalScrollBar()->setSingleStep(layout_.RowHeight());
    horizontalScrollBar()->setSingleStep(layout_.RowHeight());
}

void GridView::RedrawChanged(bool on)
{
    viewport()->setUpdatesEnabled(on);
    header_->setUpdatesEnabled(on);
    if (on)
        Sync();
}

void GridView::Sync()
{
    if (!grid_.Redraw())
        return;
    layout_.Take(grid_);
    PlaceHeader();
    UpdateScrollBars();
    if (shownRow_ != grid_.Row() || shownColumn_ != grid_.Col()) {
        shownRow_ = grid_.Row();
        shownColumn_ = grid_.Col();
        ShowCurrentCell();
    }
    header_->update();
    viewport()->update();
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
    header_->update();
    viewport()->update();
}

void GridView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    PlaceHeader();
    UpdateScrollBars();
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
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint place = event->position().toPoint();
    const std::size_t row = layout_.RowAt(place.y());
    std::int32_t column = layout_.ColumnAt(place.x());
    bool arrow = false;
    events_.Run([&] {
        if (!takeFocus_() || row == 0)
            return;
        if (column == 0)
            column = std::max(grid_.Col(), 1);
        if (!grid_.MoveTo(row, column))
            return;
        const QRect line = layout_.RowRect(row);
        arrow = grid_.Rows().Kind(row) == GridRowKind::GroupHeading && place.x() >= line.left() &&
                place.x() < line.left() + line.height();
        if (arrow)
            ToggleFold(row);
    });
}

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
        if (const auto text = grid_.CellTip(row, column))
            cell_tip::Show(*viewport(), tipPlace_, layout_.CellRect(row, column), *text);
    });
}

void GridView::ToggleFold(std::size_t row)
{
    grid_.Rows().Fold(row, !grid_.Rows().Folded(row));
    Sync();
}

}  // namespace clb
