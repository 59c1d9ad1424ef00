// Draws the totals below the grid.
#pragma once
#include <sigc++/trackable.h>

#include <QString>
#include <cstdint>

#include "controls/Inputs.h"

class QLabel;
class QLineEdit;
class QWidget;

namespace clb {

class frmController;
class GridView;

/// Draws the line below the grid: a label and the amounts. An amount lies below its column as that
/// is drawn, else in the place of its control. A box that is too narrow for its amount grows to the
/// left, over the room of what is before it.
class TotalsLine : public sigc::trackable {
public:
    /// The widgets become children of parent. The others are borrowed and outlive the line.
    TotalsLine(frmController& controller, GridView& grid, QWidget* parent);

    /// Names the amounts after their columns, for screen readers. They read amounts that have
    /// changed since the last call, if the same account and month are shown.
    void Describe();

    [[nodiscard]] QLineEdit* First() const { return first_; }
    [[nodiscard]] QLineEdit* Second() const { return second_; }
    [[nodiscard]] QLabel* Caption() const { return label_; }

private:
    /// The horizontal room of a box, in pixels; none if right is not after left.
    struct Room {
        int left = 0;
        int right = 0;
    };
    void Follow(Control& control);
    void Arrange();
    [[nodiscard]] std::int32_t ColumnOf(const QLineEdit* drawn) const;
    /// The room of a column as it is drawn.
    [[nodiscard]] Room RoomBelow(std::int32_t column) const;
    void NameAfter(QLineEdit& drawn);
    /// What is shown: view, month and account.
    [[nodiscard]] QString Subject() const;
    /// The names and amounts that are shown, in one text.
    [[nodiscard]] QString Amounts() const;
    /// Draws an amount; `limit` is where the next box begins. Returns where this one begins.
    int Show(const TextBox& box, QLineEdit& drawn, int limit);

    frmController& controller_;
    GridView& grid_;
    QLabel* label_;
    QLineEdit* first_;
    QLineEdit* second_;
    QString subject_;
    QString read_;  // all amounts at the last call
};

/// Puts the widget in the place of its control. A control without width or height is not shown.
void ApplyPlace(const Control& control, QWidget& widget);

}  // namespace clb
