// Calls of the program's public operations by name.
#pragma once
#include <string>

#include "app/frmController.h"
#include "json/ValueJson.h"

namespace clb {

/// Calls an operation by name; arguments is an array in the order of its parameters. Returns
/// "result" and "args", the arguments after the call. Throws RequestError, and calls nothing, if
/// there is no such operation or the arguments do not fit it.
[[nodiscard]] Json CallOperation(frmController& controller, const std::string& name,
                                 const Json& arguments);

}  // namespace clb
