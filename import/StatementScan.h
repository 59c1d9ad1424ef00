#pragma once
#include <cstddef>
#include <string_view>

namespace clb::statement_scan {

/// The searches of statement_tags by 0-based byte offset, and without copies: what they return
/// refers to the text. In UTF-8 a piece of valid text is never found inside a character, so both
/// ways of counting find the same places.

inline constexpr std::size_t None = std::string_view::npos;

/// Offset of the next occurrence at or after from; None when there is none.
std::size_t Find(std::string_view text, std::string_view what, std::size_t from);
/// Value behind the next such tag at or after from, without outer blanks; empty when it is absent.
std::string_view Value(std::string_view text, std::string_view tag, std::size_t from);
/// What stands between <name> and </name>; from is moved past the closing tag. Empty, and from as
/// it was, when either is absent.
std::string_view Block(std::string_view text, std::string_view name, std::size_t& from);

}  // namespace clb::statement_scan
