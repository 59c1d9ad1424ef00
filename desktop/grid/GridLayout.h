// Where the grid's rows and columns are in its viewport.
#pragma once
#include <QRect>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace clb {

class GridComponent;

/// Where the grid's rows and columns are in its viewport, in pixels.
///
///   +----------+----------+----------+----
///   |          | heading  | heading  |       header
///   +----------+----------+----------+----
///   | selector |  cell    |  cell    |       one line for each displayed row
///
/// All rows have the same height, so a row is found without visiting the others.
class GridLayout {
public:
    struct Span {
        std::int32_t column = 0;  ///< number of the column
        int left = 0;             ///< from the first shown column's left edge
        int width = 0;
    };

    /// Widths of shown columns in pixels, by the number of the column.
    using Widths = std::map<std::int32_t, int>;

    /// Reads the shown columns and the number of rows. A column without an entry in `widths` has
    /// the component's width.
    void Take(const GridComponent& grid, const Widths& widths = {});
    void RowHeight(int pixels) { rowHeight_ = pixels; }
    [[nodiscard]] int RowHeight() const { return rowHeight_; }
    void SelectorWidth(int pixels) { selectorWidth_ = pixels; }
    [[nodiscard]] int SelectorWidth() const { return selectorWidth_; }
    /// Sets how many pixels are scrolled out at the left and at the top.
    void Scroll(int left, int top);

    /// Width of the figures to the right of the columns; 0: there are none.
    void SideWidth(int pixels) { sideWidth_ = pixels; }
    [[nodiscard]] int SideWidth() const { return sideWidth_; }

    [[nodiscard]] const std::vector<Span>& Spans() const { return spans_; }
    /// Width of all columns, without the selector, and height of all rows.
    [[nodiscard]] int TotalWidth() const { return totalWidth_; }
    [[nodiscard]] int TotalHeight() const { return static_cast<int>(rowCount_) * rowHeight_; }
    [[nodiscard]] std::size_t RowCount() const { return rowCount_; }

    /// Displayed row at a height of the viewport; 0 below the last.
    [[nodiscard]] std::size_t RowAt(int y) const;
    /// Column at a place of the viewport; 0 on the selector and beside the columns.
    [[nodiscard]] std::int32_t ColumnAt(int x) const;
    /// The column whose right line is within a few pixels of a place in the viewport. Returns 0 if
    /// there is none.
    [[nodiscard]] std::int32_t LineAt(int x) const;
    [[nodiscard]] int RowTop(std::size_t row) const;
    [[nodiscard]] QRect CellRect(std::size_t row, const Span& span) const;
    /// Empty for a column that is not shown.
    [[nodiscard]] QRect CellRect(std::size_t row, std::int32_t column) const;
    /// The whole row without its selector.
    [[nodiscard]] QRect RowRect(std::size_t row) const;
    /// Where the figure beside the row's cells is.
    [[nodiscard]] QRect SideRect(std::size_t row) const;
    [[nodiscard]] QRect SelectorRect(std::size_t row) const;
    /// The shown column `steps` to the right (negative: left) of a column; 0 when there is none.
    /// A column that is not shown counts as the first.
    [[nodiscard]] std::int32_t Neighbour(std::int32_t column, int steps) const;
    /// Place of a column among the shown ones, from 1; 0 if it is not shown.
    [[nodiscard]] std::size_t PlaceOf(std::int32_t column) const;
    [[nodiscard]] std::int32_t FirstColumn() const;
    [[nodiscard]] std::int32_t LastColumn() const;

private:
    std::vector<Span> spans_;
    std::size_t rowCount_ = 0;
    int totalWidth_ = 0;
    int rowHeight_ = 22;
    int selectorWidth_ = 22;
    int sideWidth_ = 0;
    int scrollLeft_ = 0;
    int scrollTop_ = 0;
};

}  // namespace clb
