// Dates as people type them into a cell.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"

namespace clb {

/// What a typed date refers to when it leaves out its year, or its month too.
struct DateContext {
    Date today;
    Month shown;  ///< the month in view; a period of 0 means that of today
};

/// How dates are written where the user lives.
struct DateHabits {
    DateText::Order order = DateText::Order::MonthDayYear;
    /// Names of months in the user's language, each with its number. The English ones are always
    /// known. Case does not matter, and the first three letters or more are enough.
    struct Name {
        std::string text;
        int month = 0;  ///< 1 to 12
    };
    std::vector<Name> months;
};

/// The year that two digits mean: 00 to 29 are 20xx, 30 to 99 are 19xx. Nothing for any other text.
std::optional<int> YearOfTwoDigits(std::string_view text);

/// Reads a date as a person types it. Returns nothing for any other text and for a day that does
/// not exist: a date in another order than the user's is refused, never turned round.
///
/// - "t" or "today": today.
/// - "3" or "3.": the day of the shown month.
/// - "11/3", "11-3", "11.3": month and day in the user's order. With a dot at the end ("3.11.") the
///   day comes first everywhere. The year is the shown one. Around the turn of the year it is
///   the neighbouring one: for a month ten or eleven months after the shown one the year before,
///   for one eleven months before it the year after.
/// - "11/3/26", "3.11.2026": in the user's order. Years of two digits: 00 to 29 are 20xx, 30 to 99
///   are 19xx.
/// - "2026-3-1", "2026/11/03": the year first, in any order of the user.
/// - "Nov 3", "3 Nov 26", "3. November 2026", "November 3, 2026".
std::optional<Date> ReadTypedDate(std::string_view text, const DateContext& context,
                                  const DateHabits& habits);

}  // namespace clb
