#include "typed/TypedDate.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>

#include "base/Text.h"

namespace clb {
namespace {

constexpr std::array<std::string_view, 12> kEnglish = {
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};
constexpr std::size_t kLeastLetters = 3;
constexpr std::size_t kMostDigits = 4;
/// Years of two digits below this one are 20xx.
constexpr int kCentury = 30;

/// A number or a word of the text, and the marks after it.
struct Piece {
    std::string_view text;
    bool number = false;
    std::string marks;  ///< without spaces
};

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsMark(char c)
{
    return c == ' ' || c == '/' || c == '-' || c == '.' || c == ',';
}

/// Returns at most four pieces. Four are more than any date has.
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

bool Begins(std::string_view name, std::string_view word)
{
    return Length(word) >= kLeastLetters && Length(name) >= Length(word) &&
           CompareAlphabetical(Left(name, Length(word)), word) == 0;
}

/// Returns the month's number, or 0 if the word is the beginning of no month's name, or of several.
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
        if (first.text.size() == kMostDigits)
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
        const int month = MonthOf(pieces[named].text, habits_);
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

std::optional<Date> ReadTypedDate(std::string_view text, const DateContext& context,
                                  const DateHabits& habits)
{
    const std::string_view typed = Trim(text);
    if (EqualsIgnoringCase(typed, "t") || EqualsIgnoringCase(typed, "today"))
        return Date::FromDays(context.today.Days());
    return Reader(context, habits).Read(PiecesOf(typed));
}

}  // namespace clb
