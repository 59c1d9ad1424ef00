// Draws the rows of the grid.
#pragma once
#include <QFont>
#include <QRect>
#include <cstddef>

#include "desktop/grid/GridLayout.h"
#include "desktop/look/GridColors.h"

class QPainter;

namespace clb {

class GridComponent;

/// Draws only the rows of the grid that intersect a rectangle of its viewport.
class GridPainter {
public:
    /// focused: whether the grid has the focus. All arguments are borrowed while painting.
    GridPainter(QPainter& painter, GridComponent& grid, const GridLayout& layout,
                const QPalette& palette, bool focused);
    void Draw(const QRect& area);

    /// Space between a cell's edge and its text.
    static constexpr int kPadding = 6;

private:
    void DrawRow(std::size_t row);
    void DrawCells(std::size_t row);
    void DrawCell(std::size_t row, const GridLayout::Span& span);
    void DrawCellText(const QRect& cell, const QString& text, bool right, const QColor& color);
    void DrawWarning(const QRect& cell);
    void DrawBeside(std::size_t row);
    void DrawToday(std::size_t row);
    [[nodiscard]] int DaysFromToday(std::size_t row) const;
    void DrawHeading(std::size_t row);
    void DrawFooter(std::size_t row);
    void DrawSelector(std::size_t row);
    void DrawPencil(const QRect& place, const QColor& color);
    void DrawStar(const QRect& place, const QColor& color);
    void DrawDot(const QRect& place, const QColor& color);
    void DrawCurrentFrame();
    [[nodiscard]] QColor RowColor(std::size_t row) const;
    [[nodiscard]] QFont Bold() const;

    QPainter& painter_;
    GridComponent& grid_;
    const GridLayout& layout_;
    GridColors colors_;
    bool focused_;
};

/// The text flags of cells and captions: vertically centred, at the left or the right.
int CellAlignment(bool right);
/// Draws the arrow of a group heading. It points to the right if the group is folded, else down.
void DrawFoldArrow(QPainter& painter, const QRect& place, bool folded, const QColor& color);

}  // namespace clb
