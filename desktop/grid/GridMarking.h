// Marking rows by the user's keys and clicks.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>

#include "controls/GridComponent.h"

class QKeyEvent;
class QMouseEvent;

namespace clb {

class GridCursor;
class UserEvents;

/// Marks rows of the grid. The current cell goes along; any other key or click that moves it
/// unmarks the rows.
class GridMarking {
public:
    /// All are borrowed and outlive this. takeFocus returns false if the grid may not have the
    /// focus.
    GridMarking(GridComponent& grid, GridCursor& cursor, UserEvents& events,
                const std::function<bool()>& takeFocus)
        : grid_(grid), cursor_(cursor), events_(events), takeFocus_(takeFocus)
    {
    }

    /// Takes Shift with Up and Down, and Escape while rows are marked. Returns false for other
    /// keys.
    bool ByKey(const QKeyEvent& event);
    /// Takes a left click with Control or Shift on a row that was drawn with this number. Returns
    /// false for other clicks.
    bool ByClick(const QMouseEvent& event, std::size_t row, std::int32_t column);

private:
    void Mark(std::size_t row, std::int32_t column, bool range);

    GridComponent& grid_;
    GridCursor& cursor_;
    UserEvents& events_;
    const std::function<bool()>& takeFocus_;
};

}  // namespace clb
