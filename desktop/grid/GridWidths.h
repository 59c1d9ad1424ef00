// The widths of the grid's columns as the user sets them.
#pragma once
#include <cstdint>

#include "controls/GridComponent.h"

class QKeyEvent;
class QWidget;

namespace clb {

class GridHeader;
class GridLayout;
class UserEvents;

/// Sets the widths of the grid's columns by mouse and keys.
class GridWidths {
public:
    /// All are borrowed and outlive this. viewport is where the rows are drawn.
    GridWidths(GridComponent& grid, const GridLayout& layout, UserEvents& events,
               const QWidget& viewport)
        : grid_(grid), layout_(layout), events_(events), viewport_(viewport)
    {
    }

    /// Gives a column this width in pixels.
    void Set(std::int32_t column, int width);
    /// Fits a column to its caption and to the rows in sight.
    void Fit(std::int32_t column, const GridHeader& header);
    /// Takes Control+Shift with Left, Right and F, which make the current column narrower or wider,
    /// or fit it. Returns false for other keys.
    bool ByKey(const QKeyEvent& event, const GridHeader& header);

private:
    GridComponent& grid_;
    const GridLayout& layout_;
    UserEvents& events_;
    const QWidget& viewport_;
};

}  // namespace clb
