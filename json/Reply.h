// The replies of "clb sql" and of the automation.
#pragma once
#include <cstdint>
#include <string>

#include "json/ValueJson.h"

namespace clb {

/// The reply to a request that succeeded: "ok" and the members.
[[nodiscard]] Json GoodReply(const Json& members);
/// The reply to a request that failed. number is the error's number, 0 for a request that could
/// not be understood.
[[nodiscard]] Json ErrorReply(std::int32_t number, const std::string& message);

}  // namespace clb
