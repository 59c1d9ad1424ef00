#pragma once
#include <span>
#include <string_view>

namespace clb {

/// One file of the manual.
struct HelpFile {
    std::string_view name;  ///< without a folder
    std::string_view bytes;
};

/// The manual: its pages (index.html is the first), their style and their pictures, all for one
/// folder. Made at build time from help/.
std::span<const HelpFile> HelpFiles();

/// A text that changes whenever the manual does.
std::string_view HelpVersion();

}  // namespace clb
