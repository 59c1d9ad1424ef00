#pragma once
#include "app/frmController.h"
#include "json/ValueJson.h"

#include <string>

namespace clb {

/// Calls a public operation of the program by name, arguments in the order of its definition.
/// Returns "result" and "args", the arguments as they stand after the call. Throws RequestError,
/// with nothing called, for an unknown operation and for missing, surplus or wrong arguments.
Json CallOperation(frmController& controller, const std::string& name, const Json& arguments);

}  // namespace clb
