#include "desktop/GridHeader.h"

#include <QPainter>

#include "desktop/GridPainter.h"
#include "desktop/TextConvert.h"

namespace clb {

namespace {

bool AlignsRight(const GridColumn& column)
{
    if (column.headingAlignment == grid_align::Right)
        return true;
    return column.dataType == FieldType::Long || column.dataType == FieldType::Money ||
           column.dataType == FieldType::Double || column.dataType == FieldType::Single;
}

}  // namespace

GridHeader::GridHeader(const GridComponent& grid, const GridLayout& layout, QWidget* parent)
    : QWidget(parent), grid_(grid), layout_(layout)
{
    setFocusPolicy(Qt::NoFocus);
}

QSize GridHeader::sizeHint() const
{
    return {layout_.TotalWidth(), fontMetrics().height() + 10};
}

void GridHeader::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const GridColors colors(palette());
    painter.fillRect(rect(), colors.header);
    QFont font = painter.font();
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    for (const GridLayout::Span& span : layout_.Spans()) {
        const GridColumn& column = grid_.Columns().Item(span.column);
        QRect cell = layout_.CellRect(1, span);
        cell.setTop(0);
        cell.setBottom(height() - 1);
        painter.setPen(colors.frame);
        painter.drawLine(cell.topRight(), cell.bottomRight());
        const QRect inner = cell.adjusted(GridPainter::Padding, 0, -GridPainter::Padding, 0);
        const int align = CellAlignment(AlignsRight(column));
        painter.setPen(colors.text);
        painter.drawText(inner, align | int(Qt::TextSingleLine),
                         painter.fontMetrics().elidedText(ToQString(column.caption), Qt::ElideRight,
                                                          inner.width()));
    }
    const QRect corner(0, 0, layout_.SelectorWidth(), height());
    painter.fillRect(corner, colors.header);
    painter.setPen(colors.frame);
    painter.drawLine(corner.topRight(), corner.bottomRight());
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

}  // namespace clb
