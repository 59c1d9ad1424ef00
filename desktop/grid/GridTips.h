// The tip of the cell below the pointer.
#pragma once
#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <string>

#include "controls/GridComponent.h"
#include "desktop/grid/GridLayout.h"

class QKeyEvent;
class QWidget;

namespace clb {

class UserEvents;

/// Shows the tip of a cell after the pointer has rested on it, or at once when a key asks for it.
/// The text is the component's tip or, without one, the cell's text if it does not fit.
class GridTips : public QObject {
public:
    /// All are borrowed and outlive this.
    GridTips(GridComponent& grid, const GridLayout& layout, UserEvents& events, QWidget& viewport)
        : grid_(grid), layout_(layout), events_(events), viewport_(viewport)
    {
    }

    /// Hides the tip. If the pointer `rests` from here on, the tip of this place shows after the
    /// component's delay. Places are in the viewport.
    void PointerMoved(const QPoint& place, bool rests);
    void PointerLeft() { timer_.stop(); }
    /// Hides the tip if its row is not at its place any more.
    void RowsDrawn();
    /// Shows the tip of the cell at the place at once. A cell that cannot be read has no tip.
    void ShowAt(const QPoint& place);
    /// Takes the key that shows the tip of the current cell: screen readers read it. Returns false
    /// for any other key, and if there is no cell.
    bool ByKey(const QKeyEvent& event);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void Hide();
    std::string TipOf(std::size_t row, std::int32_t column);
    void ShowTip(const QPoint& place, std::size_t row, std::int32_t column);

    GridComponent& grid_;
    const GridLayout& layout_;
    UserEvents& events_;
    QWidget& viewport_;
    QBasicTimer timer_;
    QPoint place_;
    QRect cell_;  // that the shown tip is about
    GridSpot row_;
    bool reads_ = false;  // screen readers read the next tip
};

}  // namespace clb
