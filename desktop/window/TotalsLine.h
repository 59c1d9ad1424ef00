// Draws the totals below the grid.
#pragma once
#include <sigc++/trackable.h>

#include <QString>

#include "controls/Inputs.h"

class QLabel;
class QLineEdit;
class QWidget;

namespace clb {

/// Draws the line below the grid: a label and the amounts, each in the place of its control. A box
/// that is too narrow for its amount grows to the left, over the room of what is before it.
class TotalsLine : public sigc::trackable {
public:
    /// The widgets become children of parent.
    TotalsLine(Label& label, TextBox& first, TextBox& second, QWidget* parent);

    /// Names the amounts for screen readers. They read an amount that has changed since the last
    /// call, if the subject, such as an account in a month, is still the same.
    void Describe(const QString& subject, const QString& first, const QString& second);
    [[nodiscard]] QLineEdit* First() const { return first_; }
    [[nodiscard]] QLineEdit* Second() const { return second_; }
    [[nodiscard]] QLabel* Caption() const { return label_; }

private:
    void Follow(Control& control);
    void Arrange();
    /// Draws an amount; `limit` is where the next box begins. Returns where this one begins.
    [[nodiscard]] QString Amounts() const;
    static int Show(const TextBox& box, QLineEdit& drawn, int limit);

    Label& labelModel_;
    TextBox& firstModel_;
    TextBox& secondModel_;
    QLabel* label_;
    QLineEdit* first_;
    QLineEdit* second_;
    QString subject_;
    QString read_;  // all amounts at the last call
};

/// Puts the widget in the place of its control. A control without width or height is not shown.
void ApplyPlace(const Control& control, QWidget& widget);

}  // namespace clb
