// Draws a form as a dialog.
#pragma once
#include <sigc++/trackable.h>

#include <QDialog>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "controls/Form.h"
#include "controls/Inputs.h"
#include "desktop/input/AccessKeys.h"
#include "desktop/input/FocusBinder.h"

class QLabel;

namespace clb {

class UserEvents;

/// Draws any form as a dialog, each control with the matching widget. ArrangeForm places them. The
/// dialog closes when the form hides itself. Escape and the window's close button press the form's
/// cancel button.
class FormDialog : public QDialog, public sigc::trackable {
public:
    /// form and events are borrowed and outlive the dialog.
    FormDialog(Form& form, UserEvents& events, QWidget* parent);
    ~FormDialog() override;

    /// The widget that draws a control. Returns nullptr if no control of that name is drawn.
    [[nodiscard]] QWidget* WidgetOf(const std::string& control) const;
    Form& Model() { return form_; }
    /// Makes a label describe a control, so that the label's letter leads to the control.
    void Describe(const std::string& label, const std::string& control);

    /// Runs sync now and after each change of the control, as long as the dialog lives.
    void Follow(Control& control, const std::function<void()>& sync);

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    class Drawing;

    void BuildWidgets();
    QWidget* DrawLabel(Label& label);
    QWidget* DrawLink(Label& label, QLabel* drawn);
    QWidget* DrawPicture();
    QWidget* DrawText(TextBox& box);
    QWidget* DrawButton(Button& button);
    QWidget* DrawOption(OptionButton& option);

    Form& form_;
    UserEvents& events_;
    std::map<std::string, QWidget*> widgets_;
    std::unique_ptr<FocusBinder> focus_;
    AccessKeys keys_;
};

}  // namespace clb
