#pragma once
#include <cstdint>

namespace clb::modCommon {

/// The larger and the smaller of two numbers.
std::int32_t Max(std::int32_t a, std::int32_t b);
std::int32_t Min(std::int32_t a, std::int32_t b);

/// Which time is in force where the program runs.
enum class ZoneState { Unknown, Standard, Daylight };

/// What the system says of its time zone. All in minutes; local time = UTC - (bias + the bias of
/// the time in force).
struct ZoneInformation {
    std::int32_t bias = 0;
    std::int32_t standardBias = 0;
    std::int32_t daylightBias = 0;
    ZoneState state = ZoneState::Unknown;
};

/// Offset from UTC in whole hours, negative west of it; half hours go to the even neighbour.
std::int32_t TimeZoneOffset(const ZoneInformation& zone);

}  // namespace clb::modCommon
