// Small functions of general use.
#pragma once
#include <cstdint>

namespace clb::modCommon {

/// The larger and the smaller of two numbers.
std::int32_t Max(std::int32_t a, std::int32_t b);
std::int32_t Min(std::int32_t a, std::int32_t b);

/// Which time is in effect where the program runs.
enum class ZoneState { Unknown, Standard, Daylight };

/// The time zone of the system. All in minutes: local time = UTC - (bias + the bias of the time in
/// effect).
struct ZoneInformation {
    std::int32_t bias = 0;
    std::int32_t standardBias = 0;
    std::int32_t daylightBias = 0;
    ZoneState state = ZoneState::Unknown;
};

/// Offset from UTC in whole hours, negative to the west. Half hours are rounded to even.
std::int32_t TimeZoneOffset(const ZoneInformation& zone);

}  // namespace clb::modCommon
