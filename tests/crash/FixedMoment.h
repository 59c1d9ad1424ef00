// The local time of every crash run.
#pragma once

namespace clb {

/// The local time at which the clock of every run is stopped: as the program takes it, and as rows
/// contain it.
inline constexpr const char* kMoment = "2006-03-05T10:00:00";
inline constexpr const char* kMomentInRows = "2006-03-05 10:00:00";

}  // namespace clb
