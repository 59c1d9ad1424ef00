// The widget that draws a grid and takes its keys and clicks.
#pragma once
#include <sigc++/trackable.h>

#include <QAbstractScrollArea>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "controls/GridComponent.h"
#include "desktop/grid/ColumnFit.h"
#include "desktop/grid/EmptyState.h"
#include "desktop/grid/GridAnnouncer.h"
#include "desktop/grid/GridCursor.h"
#include "desktop/grid/GridEditing.h"
#include "desktop/grid/GridLayout.h"
#include "desktop/grid/GridMarking.h"
#include "desktop/grid/GridSorting.h"
#include "desktop/grid/GridTips.h"
#include "desktop/grid/GridWidths.h"
#include "desktop/grid/GridZoom.h"

class QAccessibleInterface;

namespace clb {

class CellEditor;
class GridHeader;
class UserEvents;

/// Draws a grid component and hands the user's keys and clicks to it. Only the visible rows are
/// read and drawn, so a hundred thousand rows scroll as quickly as ten.
///
/// Arrows, Tab, Home, End, Page up and Page down move the current cell; with Control they move it
/// to the ends of the grid. On a group heading, Left, Right, + and - fold or open the group; Space,
/// Enter and a double click toggle it. Control+Shift+Left and Control+Shift+Right make the current
/// column narrower and wider, and Control+Shift+F fits it to its contents. Control+Shift+S
/// sorts the rows by it. Control+F1 shows the current cell's tip. A double click, F2, F4 or typing
/// edits a cell. Enter saves the row and goes to the next one, from a new row to another new row.
/// Escape discards the cell's edit, then the row's changes.
///
/// Control and Shift with a click, or Shift with Up and Down, mark rows. A click on a heading shows
/// the rows by its column, a second one in the opposite order, a third one as before.
class GridView : public QAbstractScrollArea, public sigc::trackable {
public:
    /// takeFocus asks for the focus when the user clicks. If it returns false, the click does
    /// nothing. grid and events are borrowed and outlive the view.
    GridView(GridComponent& grid, UserEvents& events, std::function<bool()> takeFocus,
             QWidget* parent = nullptr);

    /// Draws the component's present state.
    void Sync();
    [[nodiscard]] const GridLayout& Layout() const { return layout_; }
    /// Describes the grid to screen readers; the toolkit owns it.
    QAccessibleInterface* MakeAccessible();
    /// Takes the focus and makes the cell current, as a click does. Returns false if that was
    /// refused.
    bool GoTo(std::size_t row, std::int32_t column);
    GridSorting& Sorting() { return sorting_; }
    /// Edits the current cell, or folds or opens the current group.
    void Open();
    CellEditor& Editor() { return *editor_; }
    GridHeader& Header() { return *header_; }
    /// Sets what the free room shows if there are no rows: `hint` returns it, and `press` runs the
    /// menu item of one of its links.
    void WhenEmpty(std::function<std::optional<EmptyHint>()> hint, EmptyState::Press press);
    void FollowHint();
    EmptyState& Empty() { return *empty_; }
    /// Sets what opens the menu of the current row, at a place of the screen.
    void OnMenu(std::function<void(const QPoint&)> open) { menu_ = std::move(open); }
    /// Sets what a double click on the head of the current row does.
    void OnOpenRow(std::function<void()> open) { openRow_ = std::move(open); }
    /// How large the grid is drawn. The wheel changes it with Control, the middle button toggles
    /// it.
    GridZoom& Zoom() { return zoom_; }
    /// Sets what is called when columns are drawn at other places.
    void OnColumnsMoved(std::function<void()> moved) { columnsMoved_ = std::move(moved); }
    /// Scrolls until the current cell is visible.
    void ShowCurrentCell();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void MeasureFonts();
    void PlaceHeader();
    void TakeLayout();
    void FollowMove();
    void ShowRow(std::size_t row);
    void FitLater();
    void FitToCells();
    void UpdateScrollBars();
    void RedrawChanged(bool on);
    void FollowEdit();
    bool LeaveEdit(const QKeyEvent& event);

    GridComponent& grid_;
    UserEvents& events_;
    std::function<bool()> takeFocus_;
    std::function<void(const QPoint&)> menu_;
    std::function<void()> openRow_;
    std::function<void()> columnsMoved_ = [] {};
    GridLayout layout_;
    ColumnFit fit_;
    bool fitsSoon_ = false;
    GridLayout::Widths drawnWidths_;
    GridHeader* header_;
    CellEditor* editor_;
    EmptyState* empty_;
    std::function<std::optional<EmptyHint>()> hint_;
    std::size_t shownRow_ = 0;
    std::int32_t shownColumn_ = 0;
    std::size_t addedRow_ = 0;  // saved as a new row since the current cell last moved
    GridCursor cursor_;
    GridEditing editing_;
    GridMarking marking_;
    GridTips tips_;
    GridAnnouncer announcer_;
    GridZoom zoom_;
    GridWidths widths_;
    GridSorting sorting_;
};

}  // namespace clb
