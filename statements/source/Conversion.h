// Converts texts to UTF-8.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace clb {

struct Converted {
    std::string text;         ///< UTF-8
    std::size_t invalid = 0;  ///< places where the encoding has no character: U+FFFD in the text
};

/// Converts from an encoding with this name, as the system knows it. Nothing if it is not known.
[[nodiscard]] std::optional<Converted> Convert(std::string_view bytes, const std::string& encoding);

}  // namespace clb
