// Names of months and weekdays in the languages that banks write.
#pragma once
#include <cstdint>
#include <string_view>

namespace clb {

/// The months, bit 0 for January, that a word means in one of the languages, full or short,
/// whatever its case and accents. 0 if it is no month's name.
[[nodiscard]] std::uint16_t MonthsNamed(std::string_view word);
/// The weekdays, bit 0 for Sunday. 0 if it is no weekday's name.
[[nodiscard]] std::uint8_t WeekdaysNamed(std::string_view word);

}  // namespace clb
