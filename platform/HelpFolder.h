// Puts the manual into the program folder.
#pragma once
#include <string>

namespace clb {

/// The folder of the manual in a program folder.
[[nodiscard]] std::string HelpFolder(const std::string& folder);

/// Writes the manual that this program carries into the program folder, which must exist; only the
/// user can read it. Does nothing if the same manual is already there. Leaves other files in the
/// manual's folder as they are. A missing manual must not stop the program: errors are ignored, and
/// the next call tries again. Returns whether the manual is complete now.
bool DeliverHelp(const std::string& folder) noexcept;

}  // namespace clb
