// Dates and ranges of dates as a search takes them.
#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

namespace clb {

/// Days as Date counts them, both ends included.
struct DayRange {
    std::int32_t first = 0;
    std::int32_t last = 0;
    bool operator==(const DayRange&) const = default;
};

/// Reads a word as days: "2026", "2026-03" or "2026-03-15", and ranges of these with ".." between
/// them, from the first day of one to the last day of the other, in any order ("2026-01..2026-03",
/// "2026-03-15..2026-04", "2020..2024"). An end may be missing ("2026-03..", "..2024").
///
/// Years from 1900 to 2099, two digits for months and days, and only days that exist; nothing else
/// is a date.
[[nodiscard]] std::optional<DayRange> DaysOf(std::string_view word);

}  // namespace clb
