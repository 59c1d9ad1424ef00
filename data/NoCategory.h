// The name of the category that transactions without one are booked to.
#pragma once

namespace clb {

/// Also the group of budget lines that have none.
inline constexpr const char* kNoCategory = "(none)";

}  // namespace clb
