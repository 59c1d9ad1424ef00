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

/// The line in which the user types while the grid has its current cell in edit: it lies over the
/// cell. Texts of a column's list complete as they are typed; the list and a calendar drop down on
/// the button, F4 or Alt+Down. On a date, + and - go a day on and back. A refused text stays,
/// framed in red, with the reason beside it.
///
/// What is typed goes into the component at once; the component decides what becomes of it.
class CellEditor : public QFrame {
public:
    /// leave takes the keys that end the edit (Enter, Tab, Escape, rows up and down) and returns
    /// whether it did. grid and view are borrowed and outlive the editor, which lies in the view's
    /// viewport. The view has its focus through the editor while that is open.
    CellEditor(GridComponent& grid, QAbstractScrollArea& view,
               std::function<bool(const QKeyEvent&)> leave);

    /// Opens, moves or closes the line as the component's state says.
    void Follow(const QRect& cell);
    [[nodiscard]] bool IsOpen() const { return open_; }
    /// Where the typed text goes.
    QLineEdit& Line() { return *line_; }
    /// The word beside a refused text; hidden when nothing was refused.
    QLabel& Refusal() { return *refusal_; }
    /// Caret behind the text instead of all of it selected.
    void CaretToEnd();
    /// Drops the list or the calendar down, where the column has one.
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
    void ShowRefusal();
    void Typed(const QString& text);
    void Complete(const QString& text);
    void Take(const QString& text);
    bool StepDay(const QKeyEvent& key);
    [[nodiscard]] const GridColumn& Column() const;
    [[nodiscard]] bool HasList() const { return Column().popup.has_value(); }
    [[nodiscard]] bool HasCalendar() const { return Column().dataType == FieldType::Date; }

    GridComponent& grid_;
    QAbstractScrollArea& view_;
    std::function<bool(const QKeyEvent&)> leave_;
    QLineEdit* line_;
    QToolButton* button_;
    QLabel* refusal_;
    QPointer<CellPopup> popup_;
    bool open_ = false;
    std::size_t row_ = 0;
    std::int32_t column_ = 0;
    qsizetype typedLength_ = 0;
};

}  // namespace clb
