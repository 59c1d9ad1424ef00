// Entities of SGML, XML and HTML.
#pragma once
#include <cstddef>
#include <string_view>

namespace clb {

struct Entity {
    char32_t code = 0;
    std::size_t size = 0;  ///< bytes of the reference; 0: the text begins with none
};

/// Reads the reference that a text begins with: "&amp;", "&#233;", "&#xE9;", "&eacute;". The ';'
/// may be missing only after a number. Numbers 128 to 159 are characters of Windows-1252, as in
/// HTML.
[[nodiscard]] Entity ReadEntity(std::string_view text);

}  // namespace clb
