// Draws the totals below the grid.
#pragma once
#include <sigc++/trackable.h>

#include "controls/Inputs.h"

class QLabel;
class QLineEdit;
class QWidget;

namespace clb {

/// Draws the line below the grid: a label and the amounts, each in the place of its control.
class TotalsLine : public sigc::trackable {
public:
    /// The widgets become children of parent.
    TotalsLine(Label& label, TextBox& first, TextBox& second, QWidget* parent);

    [[nodiscard]] QLineEdit* First() const { return first_; }
    [[nodiscard]] QLineEdit* Second() const { return second_; }
    [[nodiscard]] QLabel* Caption() const { return label_; }

private:
    void Follow(TextBox& box, QLineEdit* drawn);
    void Follow(Label& box);

    QLabel* label_;
    QLineEdit* first_;
    QLineEdit* second_;
};

/// Puts the widget in the place of its control. A control without width or height is not shown.
void ApplyPlace(const Control& control, QWidget& widget);

}  // namespace clb
