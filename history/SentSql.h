// Statements that a person sends.
#pragma once
#include <string>

#include "history/History.h"
#include "json/ValueJson.h"

namespace clb {

/// Runs one query of the dialect as a step of its own, named "SQL". Returns its fields and rows. A
/// query that makes, changes or removes a table or an index ends the history, whatever its name.
/// Throws EngineError.
Json RunSent(Connection& connection, History& history, const std::string& sql);

}  // namespace clb
