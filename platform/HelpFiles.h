// The manual that is compiled into the program.
#pragma once
#include <span>
#include <string_view>

namespace clb {

/// One file of the manual.
struct HelpFile {
    std::string_view name;  ///< file name without a folder
    std::string_view bytes;
};

/// The files of the manual: pages (the first is index.html), style and pictures. All go into one
/// folder. Made from help/ when the program is built.
[[nodiscard]] std::span<const HelpFile> HelpFiles();

/// A text that changes whenever the manual changes.
[[nodiscard]] std::string_view HelpVersion();

}  // namespace clb
