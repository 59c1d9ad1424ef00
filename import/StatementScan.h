// Searching a statement's text by byte offset.
#pragma once
#include <cstddef>
#include <string_view>

namespace clb::statement_scan {

// These do the same as statement_tags, but with 0-based byte offsets and without copies: their
// results refer to the text. UTF-8 text is never found inside a character, so counting bytes and
// counting characters lead to the same places.

inline constexpr std::size_t kNone = std::string_view::npos;

/// Offset of the next occurrence at or after `from`; kNone if there is none.
[[nodiscard]] std::size_t Find(std::string_view text, std::string_view what, std::size_t from);
/// The value after the next such tag at or after `from`, without spaces at its ends. Empty if the
/// tag is absent.
[[nodiscard]] std::string_view Value(std::string_view text, std::string_view tag, std::size_t from);
/// Returns the text between <name> and </name> and moves `from` past the closing tag. If either tag
/// is absent, returns an empty text and leaves `from` unchanged.
std::string_view Block(std::string_view text, std::string_view name, std::size_t& from);

}  // namespace clb::statement_scan
