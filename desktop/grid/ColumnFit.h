// How wide the grid's columns are drawn.
#pragma once
#include <QFontMetrics>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "desktop/grid/GridLayout.h"

namespace clb {

class GridComponent;

/// Decides how wide the grid's columns are drawn, so that no figure and no date is cut.
///
/// A column of figures or dates is at least as wide as the widest cell that was shown since the
/// rows were read, and every column as the longest word of its heading. The other columns give way
/// for that, the widest first, down to a few characters. What still does not fit is scrolled to.
/// Columns whose texts are cut then get room from those that have more than they need. A width that
/// the user has set is left alone. The widths of the component stay as they are.
class ColumnFit {
public:
    /// The widths of a column's heading in pixels.
    struct Heading {
        int least;  ///< in lines of one word
        int whole;  ///< in one line
    };
    /// grid is borrowed.
    ColumnFit(GridComponent& grid, std::function<Heading(std::int32_t column)> heading)
        : grid_(grid), heading_(std::move(heading))
    {
    }

    /// Forgets the figures that were measured: other rows are shown. The texts are kept while the
    /// columns are the same, so that these do not move from month to month.
    void Forget();
    /// Forgets everything that was measured: the font is another one.
    void ForgetAll();
    /// Measures the cells of the rows in a part of the viewport. Returns whether a column needs
    /// more room than before.
    bool Measure(const GridLayout& layout, int height, const QFontMetrics& metrics);
    /// How wide columns and figures beside them are drawn.
    struct Drawn {
        GridLayout::Widths columns;
        int beside = 0;  ///< 0: the figures are not drawn
    };
    /// The widths in a viewport in which `room` pixels are free. The figures beside the columns
    /// take their room from the last column of texts, if enough of that is left.
    [[nodiscard]] Drawn In(int room, const QFontMetrics& metrics) const;

private:
    [[nodiscard]] bool IsFigure(std::int32_t column) const;
    [[nodiscard]] int BesideWidth(const QFontMetrics& metrics) const;
    bool MeasureBeside(std::size_t row, const QFontMetrics& metrics);
    bool MeasureCell(std::size_t row, const GridLayout::Span& span, const QFontMetrics& metrics);
    void ShareSpare(GridLayout::Widths& drawn, int leastText) const;

    GridComponent& grid_;
    std::function<Heading(std::int32_t)> heading_;
    std::map<std::int32_t, int> widest_;  // figures and dates
    std::map<std::int32_t, int> texts_;
    std::string columns_;  // the columns whose texts were measured
    int widestBeside_ = 0;
};

}  // namespace clb
