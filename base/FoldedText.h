// Texts as a search compares them: without case, accents and kinds of spaces.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace clb {

/// Folds a text for searching. Two texts that a person takes for the same fold to the same bytes:
///
/// - Case and compatible forms go: "ß" becomes "ss", "ﬁ" "fi", "①" "1", a wide or a raised letter
///   the plain one.
/// - Accents go: "é" becomes "e". Vowel signs, as of the Indic and Thai scripts, are letters and
///   stay.
/// - Letters that do not decompose become their plain ones: "ł" "l", "ø" "o", "đ" and "ð" "d",
///   "æ" "ae", "œ" "oe", "þ" "th", "ħ" "h", "ı" "i" and the like.
/// - Spaces of all kinds and control characters become a plain space each. What is invisible (a
///   soft hyphen, marks of direction, joiners) goes.
/// - Typographic quotes, apostrophes, dashes and the minus sign become those of ASCII.
///
/// Bytes that are not valid UTF-8 stay as they are, one by one. A folded text has no control
/// characters, so they can divide folded texts.
[[nodiscard]] std::string Folded(std::string_view text);
/// Appends the folded text.
void AppendFolded(std::string& folded, std::string_view text);

/// Whether folding makes a plain space of the character.
[[nodiscard]] bool FoldsToSpace(char32_t character);

/// A part of a text, in bytes.
struct TextSpan {
    std::size_t at = 0;
    std::size_t size = 0;
    bool operator==(const TextSpan&) const = default;
};

/// Finds a folded word in a text that is not folded, from the left. A span has whole characters
/// with the marks that follow them, so "s" is found in "ß" as the whole of it. Spans do not
/// overlap. An empty word is not found.
[[nodiscard]] std::vector<TextSpan> FindFolded(std::string_view text, std::string_view word);

}  // namespace clb
