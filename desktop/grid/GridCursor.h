// The current cell, as the user's keys and clicks move it.
#pragma once
#include <cstddef>
#include <cstdint>

#include "controls/GridComponent.h"
#include "desktop/grid/GridLayout.h"

class QWidget;

namespace clb {

class UserEvents;

/// Moves the current cell of a grid, folds its groups and saves its row. A move to another row
/// saves the row that is left; if that is refused, the current cell stays where it is.
class GridCursor {
public:
    /// All are borrowed and outlive the cursor. The viewport's height is a page.
    GridCursor(GridComponent& grid, const GridLayout& layout, UserEvents& events,
               const QWidget& viewport)
        : grid_(grid), layout_(layout), events_(events), viewport_(viewport)
    {
    }

    /// Moves according to a key; toEnds moves to the ends of the grid. Returns false if the key
    /// does not move anything.
    bool Navigate(int key, bool toEnds);
    /// Moves to the next cell (1) or the one before it (-1), from row to row. Returns false past
    /// the first and the last cell.
    bool MoveCell(int steps);
    /// Moves to the row that was drawn with this number, within an action of the user. Returns
    /// false if the row is gone, or if the move was refused.
    bool MoveToShown(std::size_t row, std::int32_t column);
    /// The row that many rows below the current one, or above, as the keys go; footers do not
    /// count.
    [[nodiscard]] std::size_t Beside(int rows) const { return RowFromCurrent(rows); }
    /// Saves the row and goes to the next one; from a new row to another new one.
    void KeepRow();

    /// Whether the row is a group's heading. Row 0 is not.
    [[nodiscard]] bool OnHeading(std::size_t row) const;
    /// Whether the row is a group's footer, which never becomes current. Row 0 is not.
    [[nodiscard]] bool OnFooter(std::size_t row) const;
    /// Whether the row is there and not a footer. Rows may be others once the grid has the focus.
    [[nodiscard]] bool MayBeCurrent(std::size_t row) const;
    /// Folds or opens the current row's group. Returns false for other keys, and if the current row
    /// is not a heading.
    bool FoldByKey(int key);
    /// Folds the heading's group if it is open, opens it if it is folded. Row 0 does nothing.
    void ToggleFold(std::size_t row);

private:
    bool MoveTo(std::size_t row, std::int32_t column);
    bool MoveRows(int rows);
    bool MoveColumns(int steps);
    [[nodiscard]] std::size_t RowFromCurrent(int rows) const;
    [[nodiscard]] int RowsPerPage() const;

    GridComponent& grid_;
    const GridLayout& layout_;
    UserEvents& events_;
    const QWidget& viewport_;
};

}  // namespace clb
