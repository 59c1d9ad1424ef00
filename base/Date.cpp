#include "base/Date.h"

#include <array>
#include <charconv>
#include <chrono>

#include "base/Numeric.h"

namespace clb {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kZero{std::chrono::year{1899} / 12 / 30};

year_month_day Calendar(std::int32_t days)
{
    return kZero + std::chrono::days{days};
}

/// Takes one number with optional spaces around it. Returns its digits as written, or nothing.
std::optional<std::string_view> Number(std::string_view piece)
{
    while (!piece.empty() && piece.front() == ' ')
        piece.remove_prefix(1);
    while (!piece.empty() && piece.back() == ' ')
        piece.remove_suffix(1);
    if (piece.empty() || piece.size() > 4 ||
        piece.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    return piece;
}

int Value(std::string_view digits)
{
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

/// Returns the three numbers of a date text, or nothing if it does not consist of three.
std::optional<std::array<std::string_view, 3>> ThreeNumbers(std::string_view text,
                                                            const char* dividers = "/-")
{
    std::array<std::string_view, 3> numbers;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t divider = text.find_first_of(dividers);
        if ((divider == std::string_view::npos) != (i == 2))
            return std::nullopt;
        const auto number = Number(text.substr(0, divider));
        if (!number)
            return std::nullopt;
        numbers[i] = *number;
        if (i < 2)
            text.remove_prefix(divider + 1);
    }
    return numbers;
}

int FullYear(std::string_view digits)
{
    const int year = Value(digits);
    if (digits.size() > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

/// Reads exactly this many digits.
bool Fixed(std::string_view text, std::size_t at, std::size_t count, int& value)
{
    if (text.size() < at + count)
        return false;
    value = 0;
    for (const char digit : text.substr(at, count)) {
        if (digit < '0' || digit > '9')
            return false;
        value = value * 10 + (digit - '0');
    }
    return true;
}

/// Writes at least this many digits, with leading zeros.
void AppendDigits(std::string& text, unsigned number, std::size_t count)
{
    std::array<char, 10> digits{};
    std::size_t first = digits.size();
    for (; number > 0 || digits.size() - first < count; number /= 10)
        digits[--first] = static_cast<char>('0' + number % 10);
    text.append(digits.data() + first, digits.size() - first);
}

}  // namespace

std::optional<Date> Date::Of(int year, int month, int day, int hour, int minute, int second)
{
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31)
        return std::nullopt;
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        return std::nullopt;
    const year_month_day calendar{std::chrono::year{year},
                                  std::chrono::month{static_cast<unsigned>(month)},
                                  std::chrono::day{static_cast<unsigned>(day)}};
    if (!calendar.ok())
        return std::nullopt;
    const auto days = (sys_days{calendar} - kZero).count();
    return FromDays(static_cast<std::int32_t>(days), hour * 3600 + minute * 60 + second);
}

std::optional<Date> Date::FromIso(std::string_view text)
{
    int year = 0;
    int month = 0;
    int day = 0;
    if (text.size() < 10 || text[4] != '-' || text[7] != '-' || !Fixed(text, 0, 4, year) ||
        !Fixed(text, 5, 2, month) || !Fixed(text, 8, 2, day))
        return std::nullopt;
    if (text.size() == 10)
        return Of(year, month, day);
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (text.size() != 19 || (text[10] != ' ' && text[10] != 'T') || text[13] != ':' ||
        text[16] != ':' || !Fixed(text, 11, 2, hour) || !Fixed(text, 14, 2, minute) ||
        !Fixed(text, 17, 2, second))
        return std::nullopt;
    return Of(year, month, day, hour, minute, second);
}

int Date::Year() const
{
    return static_cast<int>(Calendar(days_).year());
}
int Date::Month() const
{
    return static_cast<int>(static_cast<unsigned>(Calendar(days_).month()));
}
int Date::Day() const
{
    return static_cast<int>(static_cast<unsigned>(Calendar(days_).day()));
}

std::string Date::ToIso() const
{
    const auto calendar = Calendar(days_);
    std::string text;
    text.reserve(19);
    AppendDigits(text, static_cast<unsigned>(static_cast<int>(calendar.year())), 4);
    text += '-';
    AppendDigits(text, static_cast<unsigned>(calendar.month()), 2);
    text += '-';
    AppendDigits(text, static_cast<unsigned>(calendar.day()), 2);
    if (seconds_ == 0)
        return text;
    text += ' ';
    AppendDigits(text, static_cast<unsigned>(Hour()), 2);
    text += ':';
    AppendDigits(text, static_cast<unsigned>(Minute()), 2);
    text += ':';
    AppendDigits(text, static_cast<unsigned>(Second()), 2);
    return text;
}

namespace DateText {

std::optional<Date> YearMonthDay(std::string_view text)
{
    const auto numbers = ThreeNumbers(text);
    if (!numbers)
        return std::nullopt;
    const auto& [year, month, day] = *numbers;
    return Date::Of(Value(year), Value(month), Value(day));
}

std::optional<Date> MonthDayYear(std::string_view text)
{
    const auto numbers = ThreeNumbers(text);
    if (!numbers)
        return std::nullopt;
    const auto& [first, second, third] = *numbers;
    if (first.size() > 2)
        return Date::Of(Value(first), Value(second), Value(third));
    return Date::Of(FullYear(third), Value(first), Value(second));
}

std::optional<Date> InOrder(std::string_view text, Order order)
{
    if (order == Order::MonthDayYear)
        return MonthDayYear(text);
    const auto numbers = ThreeNumbers(text, "/-.");
    if (!numbers)
        return std::nullopt;
    const auto& [first, second, third] = *numbers;
    if (order == Order::DayMonthYear)
        return Date::Of(FullYear(third), Value(second), Value(first));
    return Date::Of(FullYear(first), Value(second), Value(third));
}

}  // namespace DateText

Month Month::Previous() const
{
    return period == 1 ? Month{NarrowTo<std::int32_t>(std::int64_t{year} - 1), 12}
                       : Month{year, period - 1};
}

Month Month::Next() const
{
    return period == 12 ? Month{NarrowTo<std::int32_t>(std::int64_t{year} + 1), 1}
                        : Month{year, period + 1};
}

}  // namespace clb
