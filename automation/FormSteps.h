#pragma once
#include "controls/Form.h"
#include "json/ValueJson.h"

#include <cstdint>
#include <string>
#include <vector>

namespace clb {

/// One thing that a user does in a form.
struct FormStep {
    enum class Kind { Set, Choose, Option, Check, Spin, Click, Press, Read, Screenshot };
    Kind kind = Kind::Read;
    std::string control;   ///< its name (none for Check); the picture's file for Screenshot
    std::string to;        ///< new text of a text box, or text of the list's item to choose
    std::int32_t by = 0;   ///< how far a spinner is stepped
    Json written;          ///< the step as it was given
    std::int32_t row = 0;  ///< row of the form's list of checks, from 1
    bool ticked = false;   ///< its new state
};

/// Reads the steps of an answer. screenshots: whether there is a window to take pictures of. Throws
/// RequestError for anything that is no step.
std::vector<FormStep> ReadSteps(const Json& steps, bool screenshots);

/// Does in the form what a user would: gives the control the focus and works it. False, with
/// nothing changed, when there is no such control, it is of another kind, it is disabled or locked,
/// or it has no such item. Not for Read and Screenshot.
bool PerformStep(Form& form, const FormStep& step);

/// The form's controls by name, each with its state.
Json DescribeControls(const Form& form);

}  // namespace clb
