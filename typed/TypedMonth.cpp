#include "typed/TypedMonth.h"

#include "base/Text.h"
#include "typed/DatePieces.h"

namespace clb {
namespace {

using date_piece::MonthOf;
using date_piece::Piece;

constexpr int kMonths = 12;

std::optional<Month> Of(int year, int month)
{
    if (year < 1 || month < 1 || month > kMonths)
        return std::nullopt;
    return Month{year, month};
}

bool IsYear(const Piece& piece)
{
    return piece.text.size() == date_piece::kMostDigits;
}

std::optional<Month> OfOne(const Piece& piece, const Month& shown, const DateHabits& habits)
{
    if (!piece.number)
        return Of(shown.year, MonthOf(piece.text, habits));
    if (IsYear(piece))
        return Of(ValueOf(piece), shown.period);
    return piece.text.size() <= 2 ? Of(shown.year, ValueOf(piece)) : std::nullopt;
}

/// Whether a number cannot be a month.
bool OnlyYear(const Piece& piece)
{
    return IsYear(piece) || (piece.text.size() == 2 && ValueOf(piece) > kMonths);
}

std::optional<Month> OfNumbers(const Piece& first, const Piece& second)
{
    if (first.marks.size() > 1 || OnlyYear(first) == OnlyYear(second))
        return std::nullopt;
    const Piece& year = OnlyYear(first) ? first : second;
    const Piece& month = OnlyYear(first) ? second : first;
    return month.text.size() <= 2 ? Of(YearOf(year), ValueOf(month)) : std::nullopt;
}

std::optional<Month> OfTwo(const Piece& first, const Piece& second, const DateHabits& habits)
{
    if (first.number && second.number)
        return OfNumbers(first, second);
    if (first.number == second.number)
        return std::nullopt;
    const Piece& name = first.number ? second : first;
    const Piece& year = first.number ? first : second;
    if (year.text.size() != 2 && !IsYear(year))
        return std::nullopt;
    return Of(YearOf(year), MonthOf(name.text, habits));
}

}  // namespace

std::optional<Month> ReadTypedMonth(std::string_view text, const DateContext& context,
                                    const DateHabits& habits)
{
    const std::string_view typed = Trim(text);
    const Month present{context.today.Year(), context.today.Month()};
    if (EqualsIgnoringCase(typed, "t") || EqualsIgnoringCase(typed, "today"))
        return present;
    const std::vector<Piece> pieces = date_piece::PiecesOf(typed);
    // A dot may end the short form of a name.
    const bool ended = !pieces.empty() && (pieces.back().marks.empty() ||
                                           (pieces.back().marks == "." && !pieces.back().number));
    if (!ended)
        return std::nullopt;
    if (pieces.size() == 1)
        return OfOne(pieces[0], context.shown.period == 0 ? present : context.shown, habits);
    return pieces.size() == 2 ? OfTwo(pieces[0], pieces[1], habits) : std::nullopt;
}

}  // namespace clb
