// Texts in UTF-8: lengths, parts, case, order and encodings.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace clb {

/// Text is UTF-8. Lengths and positions count characters (code points). A byte that is not part of
/// a valid character counts as one.

/// Number of characters.
std::size_t Length(std::string_view text);
/// Returns at most count characters from the left.
std::string Left(std::string_view text, std::size_t count);
/// Returns the byte offset of the character at the 0-based position, or the text's size if there
/// are fewer.
std::size_t ByteOffset(std::string_view text, std::size_t position);

/// Trims spaces from the left, the right, or both ends.
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

/// Replaces every occurrence of `what`, from the left.
std::string Replace(std::string_view text, std::string_view what, std::string_view by);
/// Returns the pieces between the delimiters. An empty text gives one empty piece.
std::vector<std::string> Split(std::string_view text, char delimiter);
/// Only A to Z change. Other characters stay the same.
std::string ToUpperAscii(std::string_view text);
/// Compares texts and ignores the case of A to Z.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

/// Compares texts alphabetically and ignores case and accents ("a", "B", "é", "f"). Returns a
/// negative number, 0 or a positive number.
int CompareAlphabetical(std::string_view a, std::string_view b);

bool IsAscii(std::string_view text);
bool IsValidUtf8(std::string_view bytes);
/// Decodes the bytes of a statement file: as UTF-8 if all of it is valid UTF-8 (a byte-order mark
/// is skipped), else as Windows-1252.
std::string DecodeFile(std::string bytes);
std::string FromWindows1252(std::string_view bytes);
/// Characters that the code page does not have become "?".
std::string ToWindows1252(std::string_view text);

}  // namespace clb
