#include "platform/SystemClock.h"

#include <chrono>
#include <optional>

namespace clb {
namespace {

std::tm LocalTime(std::time_t moment)
{
    std::tm local{};
    localtime_r(&moment, &local);
    return local;
}

std::int32_t MinutesEastOfUtc(const std::tm& local)
{
    return static_cast<std::int32_t>(local.tm_gmtoff / 60);
}

std::time_t MomentOf(const Date& date)
{
    std::tm local{};
    local.tm_year = date.Year() - 1900;
    local.tm_mon = date.Month() - 1;
    local.tm_mday = date.Day();
    local.tm_hour = date.Hour();
    local.tm_min = date.Minute();
    local.tm_sec = date.Second();
    local.tm_isdst = -1;
    return std::mktime(&local);
}

/// The offset from UTC with daylight time on or off, as in force nearest to the moment. The C
/// library reports one moment's offset only, so this looks at six months before and after.
std::optional<std::int32_t> OffsetNear(std::time_t moment, bool daylight)
{
    constexpr std::time_t kMonth = std::time_t{30} * 24 * 3600;
    for (std::time_t distance = 0; distance <= 6; ++distance) {
        for (const std::time_t at : {moment + distance * kMonth, moment - distance * kMonth}) {
            const std::tm local = LocalTime(at);
            if ((local.tm_isdst > 0) == daylight)
                return MinutesEastOfUtc(local);
        }
    }
    return std::nullopt;
}

}  // namespace

modCommon::ZoneInformation ZoneAt(std::time_t moment)
{
    const std::tm local = LocalTime(moment);
    const auto standard = OffsetNear(moment, false);
    const auto daylight = OffsetNear(moment, true);
    modCommon::ZoneInformation zone;
    zone.bias = -standard.value_or(MinutesEastOfUtc(local));
    if (!daylight || !standard)
        return zone;
    zone.daylightBias = *standard - *daylight;
    zone.state =
        local.tm_isdst > 0 ? modCommon::ZoneState::Daylight : modCommon::ZoneState::Standard;
    return zone;
}

Date SystemClock::Now() const
{
    const std::tm local = LocalTime(std::time(nullptr));
    // Date has no leap seconds.
    const int second = local.tm_sec > 59 ? 59 : local.tm_sec;
    return Date::Of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                    local.tm_min, second)
        .value_or(Date());
}

std::uint32_t SystemClock::TickCount() const
{
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
    return static_cast<std::uint32_t>(milliseconds & 0xFFFFFFFF);
}

modCommon::ZoneInformation SystemClock::Zone() const
{
    return ZoneAt(std::time(nullptr));
}

modCommon::ZoneInformation FixedClock::Zone() const
{
    return ZoneAt(MomentOf(now_));
}

std::string CheckMoment(const std::string& text)
{
    constexpr std::size_t kLength = std::char_traits<char>::length("YYYY-MM-DDThh:mm:ss");
    const bool good = text.size() == kLength && text[10] == 'T' && Date::FromIso(text);
    return good ? "" : "\"" + text + "\" is not of the form YYYY-MM-DDThh:mm:ss";
}

}  // namespace clb
