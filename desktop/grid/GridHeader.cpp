#include "desktop/grid/GridHeader.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "desktop/grid/GridPainter.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

int InnerWidth(const GridLayout::Span& span)
{
    return span.width - 2 * GridPainter::kPadding;
}

/// Whether a caption that is too long for its column fits on two lines without cutting a word.
bool Wraps(const QString& caption, const QFontMetrics& metrics, int width)
{
    if (!caption.contains(u' ') || metrics.horizontalAdvance(caption) <= width)
        return false;
    const QStringList words = caption.split(u' ');
    return std::all_of(words.begin(), words.end(), [&](const QString& word) {
        return metrics.horizontalAdvance(word) <= width;
    });
}

}  // namespace

GridHeader::GridHeader(const GridComponent& grid, const GridLayout& layout, Actions actions,
                       QWidget* parent)
    : QWidget(parent), grid_(grid), layout_(layout), actions_(std::move(actions))
{
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
}

void GridHeader::mousePressEvent(QMouseEvent* event)
{
    const int place = event->position().toPoint().x();
    dragged_ = event->button() == Qt::LeftButton ? layout_.LineAt(place) : 0;
    if (dragged_ != 0)
        dragOffset_ = place - layout_.CellRect(1, dragged_).width();
    pressed_ = dragged_ == 0 && event->button() == Qt::LeftButton ? layout_.ColumnAt(place) : 0;
}

void GridHeader::mouseMoveEvent(QMouseEvent* event)
{
    const int place = event->position().toPoint().x();
    if (dragged_ != 0 && (event->buttons() & Qt::LeftButton) != 0)
        actions_.resize(dragged_, place - dragOffset_);
    else
        setCursor(layout_.LineAt(place) != 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event)
{
    dragged_ = 0;
    const std::int32_t pressed = std::exchange(pressed_, 0);
    const QPoint place = event->position().toPoint();
    if (pressed != 0 && rect().contains(place) && layout_.ColumnAt(place.x()) == pressed)
        actions_.sort(pressed);
}

void GridHeader::mouseDoubleClickEvent(QMouseEvent* event)
{
    const std::int32_t column = layout_.LineAt(event->position().toPoint().x());
    if (event->button() == Qt::LeftButton && column != 0)
        actions_.fit(column);
}

int GridHeader::CaptionWidth(std::int32_t column) const
{
    const QString caption = ToQString(grid_.Columns().Item(column).caption);
    return QFontMetrics(CaptionFont()).horizontalAdvance(caption) + 2 * GridPainter::kPadding + 1;
}

int GridHeader::LeastWidth(std::int32_t column) const
{
    const QFontMetrics metrics(CaptionFont());
    int widest = 0;
    for (const QString& word : ToQString(grid_.Columns().Item(column).caption).split(u' '))
        widest = std::max(widest, metrics.horizontalAdvance(word));
    return widest + 2 * GridPainter::kPadding + 1;
}

QFont GridHeader::CaptionFont() const
{
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    return bold;
}

bool GridHeader::NeedsTwoLines() const
{
    const QFontMetrics metrics(CaptionFont());
    const auto& spans = layout_.Spans();
    return std::any_of(spans.begin(), spans.end(), [&](const GridLayout::Span& span) {
        return Wraps(ToQString(grid_.Columns().Item(span.column).caption), metrics,
                     InnerWidth(span));
    });
}

QSize GridHeader::sizeHint() const
{
    const QFontMetrics metrics(CaptionFont());
    const int second = NeedsTwoLines() ? metrics.lineSpacing() : 0;
    return {layout_.TotalWidth(), metrics.height() + second + 10};
}

void GridHeader::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), GridColors(palette()).header);
    painter.setFont(CaptionFont());
    for (const GridLayout::Span& span : layout_.Spans())
        DrawCaption(painter, span);
    DrawBeside(painter);
    DrawCorner(painter);
}

void GridHeader::DrawBeside(QPainter& painter) const
{
    if (layout_.SideWidth() == 0 || !grid_.Beside())
        return;
    QRect cell = layout_.SideRect(1);
    cell.setTop(0);
    cell.setBottom(height() - 1);
    painter.setPen(GridColors(palette()).dimText);
    painter.drawText(cell.adjusted(0, 0, -GridPainter::kPadding, 0), CellAlignment(true),
                     ToQString(grid_.Beside()->caption));
}

/// A small arrow at the top of the column by which the rows are shown. It points up if the first
/// row has the least value.
void GridHeader::DrawSort(QPainter& painter, const QRect& cell) const
{
    const qreal half = 4;
    const qreal middle = cell.center().x();
    const qreal base = grid_.Rows().Sort().descending ? 2 : 2 + half;
    const qreal tip = grid_.Rows().Sort().descending ? 2 + half : 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(GridColors(palette()).accent);
    painter.drawPolygon(QPolygonF(
        {QPointF(middle - half, base), QPointF(middle + half, base), QPointF(middle, tip)}));
    painter.restore();
}

void GridHeader::DrawCaption(QPainter& painter, const GridLayout::Span& span) const
{
    const GridColors colors(palette());
    const GridColumn& column = grid_.Columns().Item(span.column);
    const QString caption = ToQString(column.caption);
    QRect cell = layout_.CellRect(1, span);
    cell.setTop(0);
    cell.setBottom(height() - 1);
    painter.setPen(colors.frame);
    painter.drawLine(cell.topRight(), cell.bottomRight());
    if (grid_.Rows().Sort().column == span.column)
        DrawSort(painter, cell);
    const QRect inner = cell.adjusted(GridPainter::kPadding, 0, -GridPainter::kPadding, 0);
    const bool wraps = Wraps(caption, painter.fontMetrics(), inner.width());
    painter.setPen(colors.text);
    painter.drawText(
        inner,
        CellAlignment(column.HeadingStandsRight()) |
            int(wraps ? Qt::TextWordWrap : Qt::TextSingleLine),
        wraps ? caption : painter.fontMetrics().elidedText(caption, Qt::ElideRight, inner.width()));
}

void GridHeader::DrawCorner(QPainter& painter) const
{
    const GridColors colors(palette());
    const QRect corner(0, 0, layout_.SelectorWidth(), height());
    painter.fillRect(corner, colors.header);
    painter.setPen(colors.frame);
    painter.drawLine(corner.topRight(), corner.bottomRight());
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

}  // namespace clb
