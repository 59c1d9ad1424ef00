// Error texts for the user.
#pragma once
#include <exception>
#include <string>

namespace clb {

/// An error as shown to the user: its own text and, if a file of the program is the problem, what
/// to do next.
std::string ErrorText(const std::exception& error);

/// Shown for a command that was rolled back, and for one that was rolled back for lack of memory.
inline constexpr const char* kNothingKept = "Nothing of the last command was kept.";
inline constexpr const char* kNoMemory =
    "There is not enough memory. Nothing of the last command was kept.";

}  // namespace clb
