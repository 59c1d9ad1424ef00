#pragma once
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
    /// Nothing when there is no such day or time.
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
    /// "yyyy-mm-dd", or "yyyy-mm-dd hh:mm:ss" ("T" for the blank too); nothing for other texts.
    static std::optional<Date> FromIso(std::string_view text);

    [[nodiscard]] std::int32_t Days() const { return days_; }
    [[nodiscard]] std::int32_t Seconds() const { return seconds_; }
    [[nodiscard]] int Year() const;
    [[nodiscard]] int Month() const;  ///< 1 to 12
    [[nodiscard]] int Day() const;    ///< 1 to 31
    [[nodiscard]] int Hour() const { return seconds_ / 3600; }
    [[nodiscard]] int Minute() const { return seconds_ / 60 % 60; }
    [[nodiscard]] int Second() const { return seconds_ % 60; }

    /// "yyyy-mm-dd", with " hh:mm:ss" only when it is not midnight.
    [[nodiscard]] std::string ToIso() const;

    friend constexpr auto operator<=>(const Date&, const Date&) = default;

private:
    std::int32_t days_ = 0;
    std::int32_t seconds_ = 0;
};

/// Reads the date texts of statements: three whole numbers divided by "/" or "-", blanks allowed
/// around each. Nothing is guessed or swapped: what does not fit its order is no date.
namespace DateText {
/// year/month/day; nothing when the text is no such date.
std::optional<Date> YearMonthDay(std::string_view text);
/// month/day/year; a first number of three or four digits means year/month/day. Years written with
/// one or two digits: 0 to 29 are 20xx, 30 to 99 are 19xx.
std::optional<Date> MonthDayYear(std::string_view text);
/// The order of the three numbers, where a file's writer is known.
enum class Order { MonthDayYear, DayMonthYear, YearMonthDay };
/// By the rule above for month/day/year; the other two take no other order than their own, years of
/// one or two digits as above, and dots between the numbers too.
std::optional<Date> InOrder(std::string_view text, Order order);
}  // namespace DateText

/// A budget month: calendar year and period, 1 = January to 12 = December.
struct Month {
    std::int32_t year = 0;
    std::int32_t period = 0;

    /// The month before; before January comes December of the year before. Throws Overflow() where
    /// there is no such year.
    [[nodiscard]] Month Previous() const;
    /// The month after; after December comes January of the next year. Throws as Previous.
    [[nodiscard]] Month Next() const;
    friend constexpr auto operator<=>(const Month&, const Month&) = default;
};

}  // namespace clb
