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
/// it, a time and a zone after it (the day is the one written; no conversion). An ISO date and a
/// month by name are read in any order. Years of two digits: 0 to 69 are 20xx, 70 to 99 are 19xx.
/// Returns nothing for other texts and for days that do not exist.
[[nodiscard]] std::optional<Date> ReadDate(std::string_view text, DateText::Order order);

/// Settles the order of day, month and year from all dates of a file.
class DateOrders {
public:
    /// Takes the text of a date, in the order of the file.
    void Add(std::string_view text);
    /// Number of texts that are no date in any order.
    [[nodiscard]] std::size_t Unreadable() const { return unreadable_; }
    /// The orders under which all readable texts are dates and weekdays are right. More than one:
    /// those under which the days of the file rise or fall throughout, if the others jump;
    /// one alone if all mean the same days. Empty if none was added.
    [[nodiscard]] std::vector<DateText::Order> Possible() const;

private:
    struct Tried {
        std::size_t readable = 0;
        bool rises = true;
        bool falls = true;
        std::optional<Date> last{};
    };
    Tried tried_[3];  ///< by DateText::Order
    std::size_t added_ = 0;
    std::size_t unreadable_ = 0;
    bool differ_ = false;  ///< a text means different days under two orders
};

}  // namespace clb
