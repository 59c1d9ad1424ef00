// The pieces of a typed date or month.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "typed/TypedDate.h"

namespace clb::date_piece {

/// The most digits that a number of a date has.
constexpr std::size_t kMostDigits = 4;

/// A number or a word of the text, and the marks after it.
struct Piece {
    std::string_view text;
    bool number = false;
    std::string marks;  ///< without spaces
};

/// Splits a text at its marks, and between digits and letters. Returns at most four pieces, which
/// are more than any date has, and none for a longer text. The pieces refer to the text.
std::vector<Piece> PiecesOf(std::string_view text);
/// The number of a piece; -1 if it has more digits than any number of a date.
int ValueOf(const Piece& piece);
/// The year that a piece of two or four digits means: 00 to 29 are 20xx, 30 to 99 are 19xx. -1 for
/// any other number of digits but one, which counts as two.
int YearOf(const Piece& piece);
/// The month's number, or 0 if the word is the beginning of no month's name, or of several.
int MonthOf(std::string_view word, const DateHabits& habits);

}  // namespace clb::date_piece
