// What the grid reports to screen readers.
#pragma once
#include <cstddef>
#include <cstdint>

namespace clb {

class GridComponent;
class GridView;
class UserEvents;

/// Reports changes of a grid to screen readers. Does nothing while none is running.
class GridAnnouncer {
public:
    /// All are borrowed and outlive the announcer.
    GridAnnouncer(GridView& view, GridComponent& grid, UserEvents& events)
        : view_(view), grid_(grid), events_(events)
    {
    }

    /// Reports a new number of rows or columns, if it has changed since the last call. Otherwise
    /// reports the current cell, if it has moved.
    void Drawn(std::size_t rows, std::size_t columns, bool moved);
    /// Reports that the rows were replaced, and the current cell.
    void RowsChanged();
    /// Reports the current cell, if the grid has the focus and no cell is in edit.
    void FocusMoved();
    /// Reports the value of a cell of the current row.
    void ValueChanged(std::int32_t column);

private:
    GridView& view_;
    GridComponent& grid_;
    UserEvents& events_;
    std::size_t rows_ = 0;
    std::size_t columns_ = 0;
};

}  // namespace clb
