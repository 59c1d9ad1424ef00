// The parts of a written date, before it is known which number is what.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/Date.h"

namespace clb {

/// The numbers of a date and the names that stand with them.
class WrittenDate {
public:
    /// The day under this order, or nothing if there is no such day.
    [[nodiscard]] std::optional<Date> In(DateText::Order order) const;
    /// Whether the first number, with others after it, could be a year of two digits.
    [[nodiscard]] bool HasShortYearFirst() const
    {
        return months_ == 0 && count_ == 3 && numbers_[0].size() <= 2 && !yearFirst_;
    }

    /// Whether points stand between the numbers. Nobody writes the month first that way.
    [[nodiscard]] bool HasPoints() const { return months_ == 0 && count_ == 3 && points_ == 2; }

private:
    friend class DateScanner;
    [[nodiscard]] std::optional<Date> Named() const;
    [[nodiscard]] std::optional<Date> Numbered(DateText::Order order) const;
    [[nodiscard]] std::optional<Date> Packed(DateText::Order order) const;
    [[nodiscard]] std::optional<Date> Checked(std::string_view year, int month,
                                              std::string_view day) const;

    std::array<std::string_view, 3> numbers_;
    std::size_t count_ = 0;
    std::uint16_t months_ = 0;
    std::uint8_t weekdays_ = 0;
    int points_ = 0;  ///< between the numbers
    bool hasWeekday_ = false;
    bool yearFirst_ = false;      ///< 年 after the first number
    bool shortestYears_ = false;  ///< '/' or ' between the numbers: years of one digit
};

/// Takes a text apart. Knows no order.
class DateScanner {
public:
    explicit DateScanner(std::string_view text);
    /// Returns nothing if the text is not built as a date.
    std::optional<WrittenDate> Scan();

private:
    [[nodiscard]] bool Complete() const;
    bool Part();
    bool Number();
    bool Name();
    bool Divider();
    bool Rest();
    bool RestPart();
    bool Time();
    bool TimeDigits();
    void Fraction();
    bool Zone();
    bool Bracket();
    bool RestWord();
    bool Weekday(std::string_view word);
    std::string_view Digits();
    std::string_view Letters();

    std::string_view rest_;
    WrittenDate date_;
    std::string_view earlier_;  ///< a word that may be a month or a weekday
    bool time_ = false;
    bool wantsTime_ = false;  ///< a word such as "at" has come
    bool zone_ = false;
};

}  // namespace clb
