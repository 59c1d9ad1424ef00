// The steps with which a driver's answer works a form.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "json/ValueJson.h"

namespace clb {

class FormUser;

/// One step of an answer.
struct FormStep {
    /// Work: something that a user does. Read: logs the form. Screenshot: takes a picture of it.
    enum class Kind { Work, Read, Screenshot };
    Kind kind = Kind::Read;
    Json written;                         ///< the step as it was given
    std::function<bool(FormUser&)> work;  ///< for Work; returns false if the control refuses
    std::string file = {};                ///< for Screenshot: where the picture goes
};

/// Reads the steps of an answer. screenshots: whether there is a window to take pictures of. Throws
/// RequestError if the JSON is not a valid step.
[[nodiscard]] std::vector<FormStep> ReadSteps(const Json& steps, bool screenshots);

/// The form's controls by name, each with its state.
[[nodiscard]] Json DescribeControls(const Form& form);

}  // namespace clb
