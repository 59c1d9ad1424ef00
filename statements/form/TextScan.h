// Characters of UTF-8 text, as the readers of amounts and dates look at them.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace clb {

/// A character and the number of its bytes. A byte that is no valid UTF-8 is a character of its
/// own, U+FFFD. Size 0 at the end of the text.
struct ScannedChar {
    char32_t code = 0;
    std::size_t size = 0;
};
[[nodiscard]] ScannedChar FirstChar(std::string_view text);

/// Whether it is a space of any kind or width, a tab, an end of line, or an invisible mark of
/// direction or byte order.
[[nodiscard]] bool IsSpace(char32_t code);
/// Whether it is a hyphen, a minus sign or a dash.
[[nodiscard]] bool IsDash(char32_t code);
[[nodiscard]] constexpr bool IsDigit(char32_t code)
{
    return code >= U'0' && code <= U'9';
}
[[nodiscard]] constexpr bool IsAsciiLetter(char32_t code)
{
    return (code | 0x20U) >= U'a' && (code | 0x20U) <= U'z' && code < 0x80;
}
/// Whether it is a letter: of ASCII, or any character beyond it that is no space, dash, mark or
/// sign.
[[nodiscard]] bool IsLetter(char32_t code);

/// Removes the spaces of any kind at both ends.
[[nodiscard]] std::string_view TrimSpaces(std::string_view text);

/// Text in small letters and without accents, of Latin and Cyrillic scripts ("Größe" is "grose");
/// for comparisons of words.
[[nodiscard]] std::string FoldText(std::string_view text);

}  // namespace clb
