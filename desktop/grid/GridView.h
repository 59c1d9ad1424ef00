#pragma once
#include <sigc++/trackable.h>

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QPoint>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "controls/GridComponent.h"
#include "desktop/grid/EmptyState.h"
#include "desktop/grid/GridLayout.h"

namespace clb {

class CellEditor;
class GridHeader;
class UserEvents;

/// Draws a grid component and hands the user's keys and clicks on to it. Only the rows in sight are
/// read and drawn, so a hundred thousand rows scroll as quickly as ten.
///
/// Arrows, Tab, Home, End, Page up and down move the current cell, with Control to the ends of the
/// grid; on a group heading Left, Right, + and - fold and open it, Space, Enter and a double click
/// do either. Control+Shift+Left and Right make the current column narrower and wider,
/// Control+Shift+F fits it to what it shows; Control+F1 shows the current cell's tip. A double
/// click, F2, F4 or typing edits a cell; Enter keeps the row and goes to the next, on the new row's
/// line to a new one again; Escape gives up the cell, then the row.
class GridView : public QAbstractScrollArea, public sigc::trackable {
public:
    /// takeFocus asks for the focus when the user clicks; false refuses the click. grid and events
    /// are borrowed and outlive the view.
    GridView(GridComponent& grid, UserEvents& events, std::function<bool()> takeFocus,
             QWidget* parent = nullptr);

    /// Draws the component's present state.
    void Sync();
    [[nodiscard]] const GridLayout& Layout() const { return layout_; }
    GridComponent& Component() { return grid_; }
    /// Place of a column among the shown ones, from 1; 0 when it is not shown.
    [[nodiscard]] std::size_t PlaceOf(std::int32_t column) const;
    /// Takes the focus and makes the cell current, as a click does; false when that is refused.
    bool GoTo(std::size_t row, std::int32_t column);
    /// Edits the current cell, folds or opens the current group.
    void Open();
    CellEditor& Editor() { return *editor_; }
    GridHeader& Header() { return *header_; }
    /// What stands in the free room when there are no rows: `hint` tells it, `press` runs a way's
    /// menu item.
    void WhenEmpty(std::function<std::optional<EmptyHint>()> hint, EmptyState::Press press);
    void FollowHint();
    EmptyState& Empty() { return *empty_; }
    /// Scrolls until the current cell is in sight.
    void ShowCurrentCell();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void MeasureFonts();
    void PlaceHeader();
    void UpdateScrollBars();
    void RedrawChanged(bool on);
    bool MoveTo(std::size_t row, std::int32_t column);
    /// To a row by the number that it was drawn with.
    bool MoveToShown(std::size_t row, std::int32_t column);
    bool MoveRows(int rows);
    bool MoveColumns(int steps);
    bool MoveCell(int steps);
    bool Navigate(int key, bool toEnds);
    [[nodiscard]] std::size_t RowFromCurrent(int rows) const;
    bool FoldByKey(int key);
    bool ColumnByKey(const QKeyEvent& event);
    void ToggleFold(std::size_t row);
    bool OnHeading(std::size_t row);
    [[nodiscard]] int RowsPerPage() const;
    void FitColumn(std::int32_t column);
    void ShowTip();
    std::string TipOf(std::size_t row, std::int32_t column);
    void FollowEdit();
    void TellRows();
    void TellFocus();
    void TellValue(std::int32_t column);
    bool BeginEdit(char32_t key = 0);
    bool EndEdit();
    void KeepRow();
    bool Edit(const QKeyEvent& event);
    bool EditByTyping(QKeyEvent& event);
    bool LeaveEdit(QKeyEvent& event);
    bool CopyOrPaste(const QKeyEvent& event);
    void Paste();

    GridComponent& grid_;
    UserEvents& events_;
    std::function<bool()> takeFocus_;
    GridLayout layout_;
    GridHeader* header_;
    CellEditor* editor_;
    EmptyState* empty_;
    std::function<std::optional<EmptyHint>()> hint_;
    std::size_t shownRow_ = 0;
    std::int32_t shownColumn_ = 0;
    std::size_t toldRows_ = 0;
    std::size_t toldColumns_ = 0;
    QBasicTimer tipTimer_;
    QPoint tipPlace_;
};

}  // namespace clb
