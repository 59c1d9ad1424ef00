// A window and its controls.
#pragma once
#include <string>
#include <vector>

#include "controls/Control.h"
#include "controls/Inputs.h"

namespace clb {

class Form;

/// Shows a form and lets the user work in it until it hides itself.
class IModalHost {
public:
    virtual ~IModalHost() = default;
    /// Returns once the form is hidden.
    virtual void Run(Form& form) = 0;
};

/// A window: a caption, named controls in tab order, and the control that has the focus.
/// The controls are borrowed; they live at least as long as the form.
class Form {
public:
    Form(std::string name, std::string caption);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    [[nodiscard]] const std::string& Name() const { return name_; }
    [[nodiscard]] const std::string& Caption() const { return caption_; }
    void Caption(const std::string& caption);
    [[nodiscard]] bool Enabled() const { return enabled_; }
    /// A disabled window accepts no input from the user.
    void Enabled(bool enabled);

    void Add(Control& control) { controls_.push_back(&control); }
    [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
    /// nullptr if there is none of that name.
    [[nodiscard]] Control* Find(const std::string& name) const;

    /// Control with the focus; nullptr if none has it.
    [[nodiscard]] Control* Focus() const { return focus_; }
    /// Moves the focus. The control that has it is asked first (Validate); if it refuses, the focus
    /// stays and the result is false. Does nothing if the control has the focus already.
    bool Focus(Control& control);

    /// The button that Enter presses, and the one that Escape and closing the window press.
    [[nodiscard]] Button* DefaultButton() const { return defaultButton_; }
    void DefaultButton(Button& button) { defaultButton_ = &button; }
    [[nodiscard]] Button* CancelButton() const { return cancelButton_; }
    void CancelButton(Button& button) { cancelButton_ = &button; }

    /// Shows the form and waits until it is hidden.
    void ShowModal(IModalHost& host);
    void Hide();
    [[nodiscard]] bool Visible() const { return visible_; }

    /// Draws all changes so far at once.
    void Refresh() { repaint_.emit(); }

    Event<void()> Changed() { return changed_; }
    Event<void()> EnabledChanged() { return enabledChanged_; }
    Event<void()> FocusChanged() { return focusChanged_; }
    Event<void()> Hidden() { return hidden_; }
    Event<void()> Repaint() { return repaint_; }

private:
    std::string name_;
    std::string caption_;
    bool enabled_ = true;
    bool visible_ = false;
    std::vector<Control*> controls_;
    Control* focus_ = nullptr;
    Button* defaultButton_ = nullptr;
    Button* cancelButton_ = nullptr;
    sigc::signal<void()> changed_;
    sigc::signal<void()> enabledChanged_;
    sigc::signal<void()> focusChanged_;
    sigc::signal<void()> hidden_;
    sigc::signal<void()> repaint_;
};

}  // namespace clb
