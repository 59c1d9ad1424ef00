// Draws the year box.
#pragma once
#include <sigc++/trackable.h>

#include <QAbstractSpinBox>
#include <QLineEdit>

#include "controls/Inputs.h"

namespace clb {

class UserEvents;

/// Draws the year box with its spinner. A typed year is handed to the model when it has four
/// digits, on Enter, or when the box loses the focus.
class YearBox : public QAbstractSpinBox, public sigc::trackable {
public:
    /// All are borrowed and outlive the box.
    YearBox(TextBox& year, Spinner& spinner, UserEvents& events, QWidget* parent = nullptr);

    [[nodiscard]] QLineEdit* Line() const { return lineEdit(); }
    [[nodiscard]] QSize sizeHint() const override;
    void stepBy(int steps) override;

protected:
    [[nodiscard]] StepEnabled stepEnabled() const override
    {
        return StepUpEnabled | StepDownEnabled;
    }
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void Sync();
    [[nodiscard]] bool Edited() const;
    void HandOn();

    TextBox& year_;
    Spinner& spinner_;
    UserEvents& events_;
};

}  // namespace clb
