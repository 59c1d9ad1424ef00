#include "typed/TypedDate.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "base/Text.h"
#include "typed/DatePieces.h"

namespace clb {
namespace {

using date_piece::Piece;

class Reader {
public:
    Reader(const DateContext& context, const DateHabits& habits)
        : context_(context), habits_(habits)
    {
        if (context.shown.period == 0)
            context_.shown = {context.today.Year(), context.today.Month()};
    }

    [[nodiscard]] std::optional<Date> Read(const std::vector<Piece>& pieces) const
    {
        const auto words = std::count_if(pieces.begin(), pieces.end(),
                                         [](const Piece& piece) { return !piece.number; });
        if (words > 0)
            return words == 1 ? WithName(pieces) : std::nullopt;
        if (!Separated(pieces))
            return std::nullopt;
        switch (pieces.size()) {
            case 1: return OfDay(pieces[0]);
            case 2: return OfMonthAndDay(pieces[0], pieces[1]);
            case 3: return Whole(pieces[0], pieces[1], pieces[2]);
            default: return std::nullopt;
        }
    }

private:
    /// Whether one mark stands between the numbers, and none but a dot after the last.
    static bool Separated(const std::vector<Piece>& pieces)
    {
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const bool last = i + 1 == pieces.size();
            const std::string& marks = pieces[i].marks;
            if (last ? !(marks.empty() || marks == ".") : marks.size() > 1 || marks == ",")
                return false;
        }
        return true;
    }

    [[nodiscard]] std::optional<Date> OfDay(const Piece& day) const
    {
        if (day.text.size() > 2)
            return std::nullopt;
        return Date::Of(context_.shown.year, context_.shown.period, ValueOf(day));
    }

    [[nodiscard]] std::optional<Date> OfMonthAndDay(const Piece& first, const Piece& second) const
    {
        if (first.text.size() > 2 || second.text.size() > 2)
            return std::nullopt;
        const bool dayFirst = habits_.order == DateText::Order::DayMonthYear || second.marks == ".";
        return dayFirst ? InYear(ValueOf(second), ValueOf(first))
                        : InYear(ValueOf(first), ValueOf(second));
    }

    [[nodiscard]] std::optional<Date> Whole(const Piece& first, const Piece& second,
                                            const Piece& third) const
    {
        if (!third.marks.empty())
            return std::nullopt;
        if (first.text.size() == date_piece::kMostDigits)
            return Of(ValueOf(first), second, third);
        switch (habits_.order) {
            case DateText::Order::DayMonthYear: return Of(YearOf(third), second, first);
            case DateText::Order::MonthDayYear: return Of(YearOf(third), first, second);
            default: return Of(YearOf(first), second, third);
        }
    }

    [[nodiscard]] std::optional<Date> WithName(const std::vector<Piece>& pieces) const
    {
        if (pieces.size() < 2 || pieces.size() > 3)
            return std::nullopt;
        const std::size_t named = pieces[0].number ? 1 : 0;
        if (pieces[named].number)
            return std::nullopt;
        const int month = date_piece::MonthOf(pieces[named].text, habits_);
        const Piece& day = pieces[1 - named];
        if (month == 0 || day.text.size() > 2)
            return std::nullopt;
        return pieces.size() == 2 ? InYear(month, ValueOf(day))
                                  : Date::Of(YearOf(pieces[2]), month, ValueOf(day));
    }

    static std::optional<Date> Of(int year, const Piece& month, const Piece& day)
    {
        if (month.text.size() > 2 || day.text.size() > 2)
            return std::nullopt;
        return Date::Of(year, ValueOf(month), ValueOf(day));
    }

    [[nodiscard]] std::optional<Date> InYear(int month, int day) const
    {
        constexpr int kLater = 10;
        constexpr int kEarlier = -11;
        const int months = month - context_.shown.period;
        const int years = months >= kLater ? -1 : months <= kEarlier ? 1 : 0;
        return Date::Of(context_.shown.year + years, month, day);
    }

    DateContext context_;
    const DateHabits& habits_;
};

}  // namespace

std::optional<int> YearOfTwoDigits(std::string_view text)
{
    const auto pieces = date_piece::PiecesOf(text);
    const bool two = pieces.size() == 1 && pieces.front().number && text.size() == 2;
    return two ? std::optional(date_piece::YearOf(pieces.front())) : std::nullopt;
}

std::optional<Date> ReadTypedDate(std::string_view text, const DateContext& context,
                                  const DateHabits& habits)
{
    const std::string_view typed = Trim(text);
    if (EqualsIgnoringCase(typed, "t") || EqualsIgnoringCase(typed, "today"))
        return Date::FromDays(context.today.Days());
    return Reader(context, habits).Read(date_piece::PiecesOf(typed));
}

}  // namespace clb
