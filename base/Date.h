// Dates, and months of the budget.
#pragma once
#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace clb {

/// A calendar date with a time of day to the second, without a time zone.
/// Years 100 to 9999. The default value is the zero date, 1899-12-30 at midnight.
class Date {
public:
    constexpr Date() = default;
    /// Returns nothing if there is no such day or time.
    static std::optional<Date> Of(int year, int month, int day, int hour = 0, int minute = 0,
                                  int second = 0);
    /// Days since the zero date (negative before it) and seconds since midnight, 0 to 86399.
    static constexpr Date FromDays(std::int32_t days, std::int32_t seconds = 0)
    {
        Date date;
        date.days_ = days;
        date.seconds_ = seconds;
        return date;
    }
    /// "yyyy-mm-dd", or "yyyy-mm-dd hh:mm:ss" ("T" instead of the space, too). Returns nothing for
    /// other texts.
    static std::optional<Date> FromIso(std::string_view text);

    [[nodiscard]] std::int32_t Days() const { return days_; }
    [[nodiscard]] std::int32_t Seconds() const { return seconds_; }
    [[nodiscard]] int Year() const;
    [[nodiscard]] int Month() const;  ///< 1 to 12
    [[nodiscard]] int Day() const;    ///< 1 to 31
    [[nodiscard]] int Hour() const { return seconds_ / 3600; }
    [[nodiscard]] int Minute() const { return seconds_ / 60 % 60; }
    [[nodiscard]] int Second() const { return seconds_ % 60; }

    /// "yyyy-mm-dd", followed by " hh:mm:ss" unless it is midnight.
    [[nodiscard]] std::string ToIso() const;

    // NOLINTNEXTLINE(modernize-use-nullptr): a wrong report for a defaulted operator
    friend constexpr auto operator<=>(const Date&, const Date&) = default;

private:
    std::int32_t days_ = 0;
    std::int32_t seconds_ = 0;
};

/// Reads the date texts of bank statements: three whole numbers separated by "/" or "-", each with
/// optional spaces around it. Never guesses or swaps day and month. Text that does not match the
/// order is not a date.
namespace DateText {
/// Reads year/month/day. Returns nothing if the text is not such a date.
std::optional<Date> YearMonthDay(std::string_view text);
/// Reads month/day/year, or year/month/day if the first number has three or four digits. Years of
/// one or two digits: 0 to 29 are 20xx, 30 to 99 are 19xx.
std::optional<Date> MonthDayYear(std::string_view text);
/// The order of the three numbers in files of a known writer.
enum class Order { MonthDayYear, DayMonthYear, YearMonthDay };
/// MonthDayYear follows the rule above. The other two accept only their own order, years of one or
/// two digits as above, and also dots between the numbers.
std::optional<Date> InOrder(std::string_view text, Order order);
}  // namespace DateText

/// English names of the months, January first.
inline constexpr std::array<std::string_view, 12> kMonthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

/// A budget month: calendar year and period, 1 = January to 12 = December.
struct Month {
    std::int32_t year = 0;
    std::int32_t period = 0;

    /// Returns the month before. January is preceded by December of the year before. Throws
    /// Overflow() if there is no such year.
    [[nodiscard]] Month Previous() const;
    /// Returns the month after. December is followed by January of the next year. Throws like
    /// Previous.
    [[nodiscard]] Month Next() const;
    friend constexpr auto operator<=>(const Month&, const Month&) = default;
};

}  // namespace clb
