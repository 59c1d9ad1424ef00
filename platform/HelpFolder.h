#pragma once
#include <string>

namespace clb {

/// Folder of a program folder's manual.
std::string HelpFolder(const std::string& folder);

/// Brings the manual in the program folder, which must exist, to the one that this program carries,
/// for the user alone; does nothing more than look when it is there already. Other files in its
/// folder stay. Help is not worth refusing anything: what cannot be written is left out silently,
/// and the next call tries again. Returns whether the manual is there now.
bool DeliverHelp(const std::string& folder) noexcept;

}  // namespace clb
