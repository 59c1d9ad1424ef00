// What the grid reports to screen readers.
#pragma once
#include <sigc++/trackable.h>

#include <QString>
#include <cstddef>
#include <cstdint>

namespace clb {

class GridComponent;
class GridView;
class UserEvents;

/// Reports changes of a grid and of its marks to screen readers. Does nothing while none is
/// running.
class GridAnnouncer : public sigc::trackable {
public:
    /// All are borrowed and outlive the announcer.
    GridAnnouncer(GridView& view, GridComponent& grid, UserEvents& events);

    /// Reports a new number of rows or columns, if it has changed since the last call. Otherwise
    /// reports the current cell, if it has moved.
    void Drawn(std::size_t rows, std::size_t columns, bool moved);
    /// Reports that the rows were replaced, and the current cell.
    void RowsChanged();
    /// Reports the current cell, if the grid has the focus and no cell is in edit.
    void FocusMoved();
    /// Reads what an empty grid says, once while the grid has the focus.
    void HintShown();
    /// The grid has got the focus: reports the current cell and the hint.
    void FocusCame();
    /// Reports the value of a cell of the current row.
    void ValueChanged(std::int32_t column);

private:
    void MarksChanged();

    GridView& view_;
    GridComponent& grid_;
    UserEvents& events_;
    std::size_t rows_ = 0;
    std::size_t columns_ = 0;
    QString hint_;  // read last
};

}  // namespace clb
