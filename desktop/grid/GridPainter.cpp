#include "desktop/grid/GridPainter.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "base/RuntimeError.h"
#include "controls/GridComponent.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

// An error in reading a cell must not stop the painting. The cell stays blank.
template <typename Read>
auto Readable(const Read& read) -> decltype(read())
{
    try {
        return read();
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace

int CellAlignment(bool right)
{
    return int(Qt::AlignVCenter) | int(right ? Qt::AlignRight : Qt::AlignLeft);
}

void DrawFoldArrow(QPainter& painter, const QRect& place, bool folded, const QColor& color)
{
    const QPointF middle = QRectF(place).center();
    const double size = std::min(place.width(), place.height()) * 0.22;
    QPainterPath path;
    if (folded) {
        path.moveTo(middle + QPointF(-size * 0.5, -size));
        path.lineTo(middle + QPointF(size * 0.5, 0));
        path.lineTo(middle + QPointF(-size * 0.5, size));
    } else {
        path.moveTo(middle + QPointF(-size, -size * 0.5));
        path.lineTo(middle + QPointF(0, size * 0.5));
        path.lineTo(middle + QPointF(size, -size * 0.5));
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.restore();
}

GridPainter::GridPainter(QPainter& painter, GridComponent& grid, const GridLayout& layout,
                         const QPalette& palette, bool focused)
    : painter_(painter), grid_(grid), layout_(layout), colors_(palette), focused_(focused)
{
}

void GridPainter::Draw(const QRect& area)
{
    painter_.fillRect(area, colors_.base);
    std::size_t row = layout_.RowAt(std::max(area.top(), 0));
    for (; row != 0 && row <= layout_.RowCount() && layout_.RowTop(row) <= area.bottom(); ++row)
        DrawRow(row);
    DrawCurrentFrame();
}

QColor GridPainter::RowColor(std::size_t row) const
{
    if (row == grid_.Row())
        return colors_.currentRow;
    return row % 2 == 0 ? colors_.alternate : colors_.base;
}

void GridPainter::DrawRow(std::size_t row)
{
    switch (grid_.Rows().Kind(row)) {
        case GridRowKind::GroupHeading: DrawHeading(row); break;
        case GridRowKind::GroupFooter: DrawFooter(row); break;
        default: painter_.fillRect(layout_.RowRect(row), RowColor(row)); DrawCells(row);
    }
    const QRect line = layout_.RowRect(row);
    painter_.setPen(colors_.line);
    painter_.drawLine(line.bottomLeft(), line.bottomRight());
    DrawSelector(row);
}

void GridPainter::DrawCells(std::size_t row)
{
    // The whole row is drawn from left to right, because a calculated cell may depend on the one
    // before it.
    for (const GridLayout::Span& span : layout_.Spans())
        DrawCell(row, span);
}

void GridPainter::DrawCell(std::size_t row, const GridLayout::Span& span)
{
    const QRect cell = layout_.CellRect(row, span);
    if (row == grid_.Row() && span.column == grid_.Col())
        painter_.fillRect(cell, colors_.currentCell);
    const GridColumn& column = grid_.Columns().Item(span.column);
    const QString text = ToQString(Readable([&] { return grid_.CellText(row, span.column); }));
    const bool right = column.StandsRight();
    DrawCellText(cell, text, right, right && text.startsWith(u'-'));
    painter_.setPen(colors_.line);
    painter_.drawLine(cell.topRight(), cell.bottomRight());
}

void GridPainter::DrawCellText(const QRect& cell, const QString& text, bool right, bool negative)
{
    const QRect inner = cell.adjusted(kPadding, 0, -kPadding, -1);
    if (text.isEmpty() || inner.width() <= 0)
        return;
    const QFontMetrics metrics = painter_.fontMetrics();
    QString shown = text;
    shown.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    if (metrics.horizontalAdvance(shown) > inner.width()) {
        // A number without its last digits would be a wrong number.
        shown = right ? QString(inner.width() / std::max(1, metrics.horizontalAdvance(u'#')), u'#')
                      : metrics.elidedText(shown, Qt::ElideRight, inner.width());
    }
    painter_.setPen(negative ? colors_.negative : colors_.text);
    painter_.drawText(inner, CellAlignment(right), shown);
}

QFont GridPainter::Bold() const
{
    QFont font = painter_.font();
    font.setWeight(QFont::DemiBold);
    return font;
}

void GridPainter::DrawHeading(std::size_t row)
{
    const QRect line = layout_.RowRect(row);
    painter_.fillRect(line, row == grid_.Row() ? colors_.currentRow : colors_.group);
    const QRect arrow(line.left(), line.top(), line.height(), line.height());
    DrawFoldArrow(painter_, arrow, grid_.Rows().Folded(row), colors_.text);
    painter_.save();
    painter_.setFont(Bold());
    painter_.setPen(colors_.text);
    painter_.drawText(line.adjusted(line.height(), 0, -kPadding, 0), Qt::AlignVCenter,
                      ToQString(grid_.Rows().HeadingText(row)));
    painter_.restore();
}

void GridPainter::DrawFooter(std::size_t row)
{
    const QRect line = layout_.RowRect(row);
    const auto style = grid_.Styles().find("GroupFooter");
    QColor back = colors_.base;
    if (style != grid_.Styles().end() && style->second.backColor == system_color::kButtonFace)
        back = colors_.buttonFace;
    painter_.fillRect(line, row == grid_.Row() ? colors_.currentRow : back);
    painter_.setPen(colors_.text);
    painter_.drawText(line.adjusted(line.height(), 0, -kPadding, 0), Qt::AlignVCenter,
                      ToQString(Readable([&] { return grid_.FooterText(row); })));
}

void GridPainter::DrawSelector(std::size_t row)
{
    const QRect place = layout_.SelectorRect(row);
    painter_.fillRect(place, colors_.header);
    painter_.setPen(colors_.frame);
    painter_.drawLine(place.topRight(), place.bottomRight());
    painter_.setPen(colors_.line);
    painter_.drawLine(place.bottomLeft(), place.bottomRight());
    const bool current = row == grid_.Row();
    const QColor color = current && focused_ ? colors_.accent : colors_.dimText;
    if (current && (grid_.Dirty() || grid_.Editing()))
        DrawPencil(place, grid_.Marked() ? colors_.negative : color);
    else if (grid_.Rows().Kind(row) == GridRowKind::NewRow)
        DrawStar(place, color);
    else if (current)
        DrawFoldArrow(painter_, place, true, color);
}

void GridPainter::DrawPencil(const QRect& place, const QColor& color)
{
    const QPointF middle = QRectF(place).center();
    const double size = std::min(place.width(), place.height()) * 0.28;
    QPainterPath path;
    path.moveTo(middle + QPointF(-size, size));
    path.lineTo(middle + QPointF(-size * 0.7, size * 0.1));
    path.lineTo(middle + QPointF(size * 0.4, -size));
    path.lineTo(middle + QPointF(size, -size * 0.4));
    path.lineTo(middle + QPointF(-size * 0.1, size * 0.7));
    path.closeSubpath();
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(QPen(color, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPath(path);
    painter_.restore();
}

void GridPainter::DrawStar(const QRect& place, const QColor& color)
{
    const QPointF middle = QRectF(place).center();
    const double reach = std::min(place.width(), place.height()) * 0.2;
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap));
    for (int spoke = 0; spoke < 3; ++spoke) {
        painter_.translate(middle);
        painter_.drawLine(QPointF(0, -reach), QPointF(0, reach));
        painter_.rotate(60);
        painter_.translate(-middle);
    }
    painter_.restore();
}

void GridPainter::DrawCurrentFrame()
{
    if (grid_.Row() == 0 || grid_.Row() > layout_.RowCount())
        return;
    const GridRowKind kind = grid_.Rows().Kind(grid_.Row());
    const bool wholeRow = kind == GridRowKind::GroupHeading || kind == GridRowKind::GroupFooter;
    const QRect cell =
        wholeRow ? layout_.RowRect(grid_.Row()) : layout_.CellRect(grid_.Row(), grid_.Col());
    if (cell.isEmpty() || (wholeRow && !focused_))
        return;
    painter_.setClipRect(
        QRect(layout_.SelectorWidth(), 0, layout_.TotalWidth(), cell.bottom() + 1));
    painter_.setPen(QPen(focused_ ? colors_.accent : colors_.frame, focused_ ? 2 : 1));
    painter_.setBrush(Qt::NoBrush);
    const int inset = focused_ ? 1 : 0;
    painter_.drawRect(cell.adjusted(inset, inset, -1 - inset, -1 - inset));
}

}  // namespace clb
