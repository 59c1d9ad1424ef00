#include "typed/DatePieces.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "base/Text.h"

namespace clb::date_piece {
namespace {

constexpr std::array<std::string_view, 12> kEnglish = {
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};
constexpr std::size_t kLeastLetters = 3;
/// Years of two digits below this one are 20xx.
constexpr int kCentury = 30;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsMark(char c)
{
    return c == ' ' || c == '/' || c == '-' || c == '.' || c == ',';
}

bool Begins(std::string_view name, std::string_view word)
{
    return Length(word) >= kLeastLetters && Length(name) >= Length(word) &&
           CompareAlphabetical(Left(name, Length(word)), word) == 0;
}

}  // namespace

std::vector<Piece> PiecesOf(std::string_view text)
{
    std::vector<Piece> pieces;
    std::size_t at = 0;
    while (at < text.size() && pieces.size() < 4) {
        const bool number = IsDigit(text[at]);
        std::size_t end = at;
        while (end < text.size() && !IsMark(text[end]) && IsDigit(text[end]) == number)
            ++end;
        Piece piece{text.substr(at, end - at), number, {}};
        for (at = end; at < text.size() && IsMark(text[at]); ++at)
            if (text[at] != ' ')
                piece.marks += text[at];
        pieces.push_back(piece);
        if (end == at && end < text.size() && pieces.back().text.empty())
            return {};
    }
    return at < text.size() ? std::vector<Piece>{} : pieces;
}

int ValueOf(const Piece& piece)
{
    return piece.text.size() > kMostDigits ? -1 : std::atoi(std::string(piece.text).c_str());
}

int YearOf(const Piece& piece)
{
    const int year = ValueOf(piece);
    if (piece.text.size() > 2)
        return piece.text.size() == kMostDigits ? year : -1;
    return year + (year < kCentury ? 2000 : 1900);
}

int MonthOf(std::string_view word, const DateHabits& habits)
{
    int found = 0;
    const auto take = [&](std::string_view name, int month) {
        if (Begins(name, word))
            found = found == 0 || found == month ? month : -1;
    };
    for (const DateHabits::Name& name : habits.months)
        take(name.text, name.month);
    if (found != 0)
        return std::max(found, 0);
    for (std::size_t i = 0; i < kEnglish.size(); ++i)
        take(kEnglish[i], static_cast<int>(i) + 1);
    return std::max(found, 0);
}

}  // namespace clb::date_piece
