#pragma once
#include <exception>
#include <string>

namespace clb {

/// An error for the user's eyes: its own text and, when the database file or another file of the
/// program's is the matter, what to do next.
std::string TroubleText(const std::exception& error);

/// What to tell of a command that was taken back, and of one for lack of memory.
inline constexpr const char* kNothingKept = "Nothing of the last command was kept.";
inline constexpr const char* kNoMemory =
    "There is not enough memory. Nothing of the last command was kept.";

}  // namespace clb
