// The name of the category that transactions without one are booked to.
#pragma once

namespace clb {

/// It is also the group of budget lines without a group.
inline constexpr const char* kNoCategory = "(none)";

}  // namespace clb
