// Files that the build embeds in the program (cmake/ClbEmbed.cmake).
#pragma once
#include <span>
#include <string_view>

namespace clb {

struct EmbeddedFile {
    std::string_view name;  ///< without a folder
    std::string_view bytes;
};

/// Files that were embedded together, in the order in which the build names them.
struct EmbeddedFiles {
    std::span<const EmbeddedFile> files;
    std::string_view version;  ///< changes whenever a name or a byte of the files does
};

}  // namespace clb
