// The line in which the user edits a cell.
#pragma once
#include <QFrame>
#include <QPointer>
#include <functional>

#include "controls/GridComponent.h"
#include "desktop/grid/CellPopup.h"

class QAbstractScrollArea;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QToolButton;

namespace clb {

/// The line in which the user types while the grid's current cell is in edit. It lies over the
/// cell. Texts of a column's list are completed as they are typed. The list or a calendar drops
/// down with the button, F4 or Alt+Down. On a date, + and - go to the next and the previous day, or
/// begin with today in an empty cell. What a typed date or calculation will be is shown beside it.
/// A refused text stays, framed in red, with the reason beside it.
///
/// What is typed goes into the component at once. The component decides whether to accept it.
class CellEditor : public QFrame {
public:
    /// leave takes the keys that end the edit (Enter, Tab, Escape, rows up and down) and returns
    /// whether it did. grid and view are borrowed and outlive the editor, which lies in the view's
    /// viewport. The view has its focus through the editor while that is open.
    CellEditor(GridComponent& grid, QAbstractScrollArea& view,
               std::function<bool(const QKeyEvent&)> leave);

    /// Opens, moves or closes the line according to the component's state.
    void Follow(const QRect& cell);
    [[nodiscard]] bool IsOpen() const { return open_; }
    /// The line edit that takes the typed text.
    QLineEdit& Line() { return *line_; }
    /// What the typed text will be, or the reason beside a refused text. Hidden if there is
    /// neither.
    QLabel& Hint() { return *hint_; }
    /// Puts the caret after the text, instead of selecting all of it.
    void CaretToEnd();
    /// Drops down the list or the calendar, if the column has one.
    void DropDown();
    CellPopup* Popup() { return popup_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Open();
    void Close();
    void Place(const QRect& cell);
    void ShowHint();
    void Typed(const QString& text);
    void Complete(const QString& text);
    void Take(const QString& text);
    [[nodiscard]] bool ShowsWholeDate() const;
    bool StepDay(const QKeyEvent& key);
    [[nodiscard]] const GridColumn& Column() const;
    [[nodiscard]] bool HasList() const { return Column().popup.has_value(); }
    [[nodiscard]] bool HasCalendar() const { return Column().dataType == FieldType::Date; }

    GridComponent& grid_;
    QAbstractScrollArea& view_;
    std::function<bool(const QKeyEvent&)> leave_;
    QLineEdit* line_;
    QToolButton* button_;
    QLabel* hint_;
    QPointer<CellPopup> popup_;
    bool open_ = false;
    std::size_t row_ = 0;
    std::int32_t column_ = 0;
    qsizetype typedLength_ = 0;
};

}  // namespace clb
