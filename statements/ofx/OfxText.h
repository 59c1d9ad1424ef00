// The texts of OFX values.
#pragma once
#include <string>
#include <string_view>

namespace clb {

inline constexpr std::string_view kSectionStart = "<![CDATA[";
inline constexpr std::string_view kSectionEnd = "]]>";

/// Whether the byte is a space, a line end or another control character.
constexpr bool IsBlank(char c)
{
    return static_cast<unsigned char>(c) <= ' ' || c == '\x7F';
}
/// Returns the text without blanks around it.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

/// Returns what a raw value says: entities and CDATA sections decoded, comments dropped, each run
/// of blanks one space, none around it. A '&' that begins no entity stays. What banks encode twice
/// ("&amp;lt;") is decoded twice.
[[nodiscard]] std::string OfxText(std::string_view raw);

}  // namespace clb
