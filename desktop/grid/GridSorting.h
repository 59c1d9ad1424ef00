// Sorting the rows of the grid by the user's clicks and keys.
#pragma once
#include <QString>
#include <cstdint>
#include <functional>

class QKeyEvent;

namespace clb {

class GridComponent;
class UserEvents;

/// Shows the rows of the grid by a column: the second time in the opposite order, the third time as
/// before.
class GridSorting {
public:
    /// All are borrowed and outlive this. done is called with the new order in words.
    GridSorting(GridComponent& grid, UserEvents& events,
                std::function<void(const QString& order)> done)
        : grid_(grid), events_(events), done_(std::move(done))
    {
    }

    void By(std::int32_t column);
    /// Takes Control+Shift+S, which sorts by the current column. Returns false for other keys.
    bool ByKey(const QKeyEvent& event);
    /// In words how the rows are ordered by a column; empty if they are not.
    [[nodiscard]] QString Text(std::int32_t column) const;

private:
    GridComponent& grid_;
    UserEvents& events_;
    std::function<void(const QString&)> done_;
};

}  // namespace clb
