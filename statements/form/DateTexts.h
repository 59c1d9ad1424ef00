// Dates as banks write them.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/Date.h"

namespace clb {

/// Reads a date written in this order of day, month and year: three numbers with '/', '-', '.',
/// spaces or ' (before a year of QIF) between them, eight or six digits without, or with the name
/// of the month in one of the languages that banks of Europe and America write; a weekday before
/// it or after it, a time and a zone after it (the day is the one written; no conversion). A date
/// that begins with a year of four digits, a month by name and 年月日 are read in any order. Years
/// of two digits: 0 to 69 are 20xx, 70 to 99 are 19xx. Returns nothing for other texts, for days
/// that do not exist, for years before 1900 or after 2199 and if the weekday is another.
[[nodiscard]] std::optional<Date> ReadDate(std::string_view text, DateText::Order order);

/// Settles the order of day, month and year from all dates of a file.
class DateOrders {
public:
    /// Takes the text of a date, in the order of the file. Empty texts settle nothing.
    void Add(std::string_view text);
    /// Number of texts that are no date in any order.
    [[nodiscard]] std::size_t Unreadable() const { return unreadable_; }
    /// The orders under which all readable texts are dates and weekdays are right, the likeliest
    /// first: the one whose days lie closest together. If the days of the file rise or fall
    /// throughout under some orders and jump under the others, only the former; it takes several
    /// different days for that. Points between the numbers of all texts rule out the
    /// month in front if the day can be there. A year of two digits in front counts only if the
    /// days lie closer together that way. One alone if all mean the same days. Empty if none was
    /// added or no order fits all.
    [[nodiscard]] std::vector<DateText::Order> Possible() const;

private:
    struct Tried {
        std::size_t readable = 0;
        std::size_t steps = 0;  ///< texts that mean another day than the one before
        bool rises = true;
        bool falls = true;
        std::optional<Date> last{};
        std::int32_t first = 0;  ///< the earliest day
        std::int32_t latest = 0;

        void Add(Date date);
        [[nodiscard]] std::int32_t Span() const { return latest - first; }
    };
    [[nodiscard]] std::vector<DateText::Order> Fitting() const;

    Tried tried_[3];  ///< by DateText::Order
    std::size_t added_ = 0;
    std::size_t unreadable_ = 0;
    std::size_t points_ = 0;  ///< texts with points between the numbers
    bool differ_ = false;     ///< a text means different days under two orders
    bool shortYear_ = false;  ///< one begins with a year of two digits, if the year is in front
};

}  // namespace clb
