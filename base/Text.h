#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace clb {

/// Text is UTF-8. Lengths and positions that users and callers see count characters (code points);
/// a byte that belongs to no valid character counts as one.

/// Number of characters.
std::size_t Length(std::string_view text);
/// The first characters, at most count; never cuts inside one.
std::string Left(std::string_view text, std::size_t count);
/// Byte offset of the character at the 0-based position; the text's size when there are fewer.
std::size_t ByteOffset(std::string_view text, std::size_t position);

/// Without blanks (spaces only) in front, behind, or both.
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

/// Every occurrence of what, from the left, replaced.
std::string Replace(std::string_view text, std::string_view what, std::string_view by);
/// The pieces between the delimiters; an empty text gives one empty piece.
std::vector<std::string> Split(std::string_view text, char delimiter);
/// A to Z only; other characters as they stand.
std::string ToUpperAscii(std::string_view text);
/// Equal but for the case of A to Z.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

/// Alphabetical order whatever the case and the accents ("a", "B", "é", "f"); equal texts in that
/// sense compare equal. Negative, 0 or positive.
int CompareAlphabetical(std::string_view a, std::string_view b);

bool IsAscii(std::string_view text);
bool IsValidUtf8(std::string_view bytes);
/// A statement file's bytes as text: UTF-8 when all of it is valid UTF-8 (a byte-order mark is
/// skipped), else Windows-1252.
std::string DecodeFile(std::string bytes);
std::string FromWindows1252(std::string_view bytes);
/// Characters that the code page lacks become "?".
std::string ToWindows1252(std::string_view text);

}  // namespace clb
