#include "desktop/GridHeader.h"

#include <QPainter>
#include <algorithm>

#include "desktop/GridPainter.h"
#include "desktop/TextConvert.h"

namespace clb {

namespace {

bool AlignsRight(const GridColumn& column)
{
    return column.headingAlignment == grid_align::Right || StandsRight(column.dataType);
}

int InnerWidth(const GridLayout::Span& span)
{
    return span.width - 2 * GridPainter::Padding;
}

}  // namespace

GridHeader::GridHeader(const GridComponent& grid, const GridLayout& layout, QWidget* parent)
    : QWidget(parent), grid_(grid), layout_(layout)
{
    setFocusPolicy(Qt::NoFocus);
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
        const QString caption = ToQString(grid_.Columns().Item(span.column).caption);
        return caption.contains(u' ') && metrics.horizontalAdvance(caption) > InnerWidth(span);
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
    DrawCorner(painter);
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
    const QRect inner = cell.adjusted(GridPainter::Padding, 0, -GridPainter::Padding, 0);
    const bool wraps =
        caption.contains(u' ') && painter.fontMetrics().horizontalAdvance(caption) > inner.width();
    painter.setPen(colors.text);
    painter.drawText(
        inner,
        CellAlignment(AlignsRight(column)) | int(wraps ? Qt::TextWordWrap : Qt::TextSingleLine),
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
