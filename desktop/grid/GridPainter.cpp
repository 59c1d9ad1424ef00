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
    if (row == grid_.Row() || grid_.Marks().Contains(grid_.Rows().Identity(row)))
        return colors_.currentRow;
    return row % 2 == 0 ? colors_.alternate : colors_.base;
}

void GridPainter::DrawRow(std::size_t row)
{
    switch (grid_.Rows().Kind(row)) {
        case GridRowKind::GroupHeading: DrawHeading(row); break;
        case GridRowKind::GroupFooter: DrawFooter(row); break;
        default:
            painter_.fillRect(layout_.RowRect(row), RowColor(row));
            DrawCells(row);
            DrawBeside(row);
    }
    const QRect line = layout_.RowRect(row);
    painter_.setPen(colors_.line);
    painter_.drawLine(line.bottomLeft(), line.bottomRight());
    DrawToday(row);
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
    const std::string text = Readable([&] { return grid_.CellText(row, span.column); });
    const bool warns = Readable([&] { return grid_.Warns(row, span.column, text); });
    DrawCellText(cell, ToQString(text), column.StandsRight(),
                 warns ? colors_.negative : colors_.text);
    if (warns && !Readable([&] { return grid_.WarningOf(row, span.column); }).empty())
        DrawWarning(cell);
    painter_.setPen(colors_.line);
    painter_.drawLine(cell.topRight(), cell.bottomRight());
}

/// A corner for those who do not see the colour of a warning, where the figure does not show it.
void GridPainter::DrawWarning(const QRect& cell)
{
    const double side = std::min(cell.width(), cell.height()) * 0.3;
    const QPointF corner = cell.topLeft();
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colors_.negative);
    painter_.drawPolygon(QPolygonF({corner, corner + QPointF(side, 0), corner + QPointF(0, side)}));
    painter_.restore();
}

void GridPainter::DrawBeside(std::size_t row)
{
    if (layout_.SideWidth() == 0 || !grid_.Beside())
        return;
    const std::string text = Readable([&] { return grid_.Beside()->text(row); });
    DrawCellText(layout_.SideRect(row), ToQString(text), true, colors_.dimText);
}

/// Negative in the past, 0 today; 0 as well if the row has no date.
int GridPainter::DaysFromToday(std::size_t row) const
{
    if (grid_.Rows().Kind(row) != GridRowKind::Data)
        return 0;
    const Value value = grid_.Rows().Stored(row, grid_.DayColumn());
    const auto* date = std::get_if<Date>(&value);
    return date ? date->Days() - grid_.Entry().Today().Days() : 0;
}

/// A bar before the rows of today, and a line between what is to come and the rest.
void GridPainter::DrawToday(std::size_t row)
{
    if (grid_.DayColumn() == 0 || grid_.Rows().Kind(row) != GridRowKind::Data)
        return;
    const QRect line = layout_.RowRect(row);
    const Value value = grid_.Rows().Stored(row, grid_.DayColumn());
    const int days = DaysFromToday(row);
    if (days == 0 && !IsNull(value))
        painter_.fillRect(QRect(line.left(), line.top(), 3, line.height() - 1), colors_.accent);
    if (grid_.Rows().Sort().column == 0 && days <= 0 && row > 1 && DaysFromToday(row - 1) > 0)
        painter_.fillRect(QRect(line.left(), line.top() - 1, line.width(), 2), colors_.accent);
}

void GridPainter::DrawCellText(const QRect& cell, const QString& text, bool right,
                               const QColor& color)
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
    painter_.setPen(color);
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
    else if (grid_.IsUnseen(row))
        DrawDot(place, colors_.accent);
}

/// The mark of a row that the user has not looked at yet.
void GridPainter::DrawDot(const QRect& place, const QColor& color)
{
    const double radius = std::min(place.width(), place.height()) * 0.16;
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(color);
    painter_.drawEllipse(QRectF(place).center(), radius, radius);
    painter_.restore();
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
