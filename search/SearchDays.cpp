#include "search/SearchDays.h"

#include <algorithm>
#include <limits>

#include "base/Date.h"

namespace clb {
namespace {

constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2099;

/// Takes a number of exactly so many digits from the front of the text, or returns nothing.
std::optional<int> TakeNumber(std::string_view& text, std::size_t digits)
{
    if (text.size() < digits)
        return std::nullopt;
    int number = 0;
    for (const char c : text.substr(0, digits)) {
        if (c < '0' || c > '9')
            return std::nullopt;
        number = number * 10 + (c - '0');
    }
    text.remove_prefix(digits);
    return number;
}

/// Takes "-" and a number of two digits.
std::optional<int> TakePart(std::string_view& text)
{
    if (!text.starts_with('-'))
        return std::nullopt;
    text.remove_prefix(1);
    return TakeNumber(text, 2);
}

DayRange MonthsOf(int year, int firstMonth, int lastMonth)
{
    const bool december = lastMonth == 12;
    const auto after = Date::Of(december ? year + 1 : year, december ? 1 : lastMonth + 1, 1);
    return {Date::Of(year, firstMonth, 1).value_or(Date()).Days(),
            after.value_or(Date()).Days() - 1};
}

/// The days of a year, a month or one day.
std::optional<DayRange> OneOf(std::string_view text)
{
    const auto year = TakeNumber(text, 4);
    if (!year || *year < kFirstYear || *year > kLastYear)
        return std::nullopt;
    if (text.empty())
        return MonthsOf(*year, 1, 12);
    const auto month = TakePart(text);
    if (!month || *month < 1 || *month > 12)
        return std::nullopt;
    if (text.empty())
        return MonthsOf(*year, *month, *month);
    const auto day = TakePart(text);
    const auto date = day ? Date::Of(*year, *month, *day) : std::nullopt;
    if (!date || !text.empty())
        return std::nullopt;
    return DayRange{date->Days(), date->Days()};
}

}  // namespace

std::optional<DayRange> DaysOf(std::string_view word)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const std::size_t dots = word.find("..");
    if (dots == std::string_view::npos)
        return OneOf(word);
    const std::string_view from = word.substr(0, dots);
    const std::string_view to = word.substr(dots + 2);
    const auto first = OneOf(from);
    const auto last = OneOf(to);
    if ((!first && !from.empty()) || (!last && !to.empty()) || (!first && !last))
        return std::nullopt;
    if (!last)
        return DayRange{first->first, Limits::max()};
    if (!first)
        return DayRange{Limits::min(), last->last};
    return DayRange{std::min(first->first, last->first), std::max(first->last, last->last)};
}

}  // namespace clb
