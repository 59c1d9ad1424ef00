#pragma once
#include "engine/Connection.h"
#include "json/ValueJson.h"

#include <string>

namespace clb {

/// Runs one statement. Gives "fields" (name and type of each) and "rows" (arrays of values); both
/// are empty for a statement without rows. Throws EngineError.
Json RunStatement(Connection& connection, const std::string& text);

/// The reply of a request that went well, from its members, and of one that failed.
Json GoodReply(const Json& members);
Json ErrorReply(std::int32_t number, const std::string& message);

}  // namespace clb
