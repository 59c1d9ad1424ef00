#include "base/modCommon.h"

#include <algorithm>
#include <cmath>

namespace clb::modCommon {

std::int32_t Max(std::int32_t a, std::int32_t b)
{
    return std::max(a, b);
}
std::int32_t Min(std::int32_t a, std::int32_t b)
{
    return std::min(a, b);
}

std::int32_t TimeZoneOffset(const ZoneInformation& zone)
{
    std::int32_t minutes = zone.bias;
    if (zone.state == ZoneState::Standard)
        minutes += zone.standardBias;
    else if (zone.state == ZoneState::Daylight)
        minutes += zone.daylightBias;
    return static_cast<std::int32_t>(std::nearbyint(minutes / -60.0));
}

}  // namespace clb::modCommon
