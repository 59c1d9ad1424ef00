// Works a form from the program, as a user works it by hand.
#pragma once
#include <cstdint>
#include <string>

#include "controls/Form.h"

namespace clb {

/// Gives a form's controls the focus and works them. Controls are found by name. Each operation
/// returns false, and changes nothing, if the form has no such control, if the control is of
/// another kind, disabled or locked, or if the control that has the focus keeps it.
class FormUser {
public:
    /// Borrows the form, which outlives it.
    explicit FormUser(Form& form) : form_(form) {}

    /// Replaces a text box's text.
    bool Set(const std::string& textBox, const std::string& text);
    /// Chooses a drop-down list's item by its text. Returns false if there is no such item.
    bool Choose(const std::string& list, const std::string& item);
    /// Chooses a row of a list of rows by the number of its line, from 1. Returns false for a
    /// heading and if there is no such line.
    bool Line(const std::string& list, std::int32_t line);
    bool Option(const std::string& option);
    /// Ticks or unticks a row of the form's list of checks. Rows are numbered from 1; returns false
    /// if there is no such row.
    bool Check(std::int32_t row, bool ticked);
    /// Presses a spinner's arrows: up as often as by says, down if it is negative.
    bool Step(const std::string& spinner, std::int32_t by);
    bool Click(const std::string& label);
    bool Press(const std::string& button);
    /// Presses the form's Cancel button, if it has one.
    void Cancel();

private:
    template <class Kind>
    [[nodiscard]] Kind* Find(const std::string& name) const;

    Form& form_;
};

}  // namespace clb
