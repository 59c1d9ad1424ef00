// Runs SQL and returns what it yields as JSON.
#pragma once
#include <string>

#include "engine/rows/Connection.h"
#include "json/ValueJson.h"

namespace clb {

/// Runs one SQL statement. Returns "fields" (name and type of each) and "rows" (arrays of values);
/// both are empty if the statement yields no rows. Throws EngineError.
[[nodiscard]] Json RunSql(Connection& connection, const std::string& sql);

}  // namespace clb
