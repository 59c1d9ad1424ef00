#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

#include "platform/SystemClock.h"

namespace clb {
namespace {

/// Sets the process's time zone for one test.
class Zone {
public:
    explicit Zone(const char* name)
    {
        if (const char* before = std::getenv("TZ"))
            before_ = before;
        setenv("TZ", name, 1);
        tzset();
    }
    ~Zone()
    {
        if (before_.empty())
            unsetenv("TZ");
        else
            setenv("TZ", before_.c_str(), 1);
        tzset();
    }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;

private:
    std::string before_;
};

FixedClock ClockAt(int year, int month, int day)
{
    return FixedClock(Date::Of(year, month, day, 12).value());
}

TEST(SystemClockTest, AFixedClockIsStoppedButItsTickCountRunsOn)
{
    const FixedClock clock(Date::Of(2006, 3, 5, 12, 30, 15).value());

    const std::uint32_t first = clock.TickCount();
    const timespec pause{0, 5'000'000};
    nanosleep(&pause, nullptr);

    EXPECT_EQ(clock.Now().ToIso(), "2006-03-05 12:30:15");
    EXPECT_GE(clock.TickCount() - first, 5U);
}

TEST(SystemClockTest, TheSystemClockShowsTheLocalTimeOfTheZone)
{
    const Zone utc("UTC0");
    const std::time_t moment = std::time(nullptr);
    const Date atUtc = SystemClock().Now();

    const Zone fiveHoursWest("EST5");
    const Date inTheWest = SystemClock().Now();

    const auto seconds = [](const Date& date) {
        return std::int64_t{date.Days()} * 86400 + date.Seconds();
    };
    EXPECT_NEAR(static_cast<double>(seconds(atUtc) - seconds(Date::Of(1970, 1, 1).value())),
                static_cast<double>(moment), 2);
    EXPECT_NEAR(static_cast<double>(seconds(atUtc) - seconds(inTheWest)), 5 * 3600, 2);
}

TEST(SystemClockTest, AZoneWithDaylightTimeSaysWhichTimeIsInForce)
{
    const Zone newYork("EST5EDT,M3.2.0,M11.1.0");

    const auto winter = ClockAt(2006, 1, 15).Zone();
    const auto summer = ClockAt(2006, 7, 15).Zone();

    EXPECT_EQ(winter.bias, 300);
    EXPECT_EQ(winter.state, modCommon::ZoneState::Standard);
    EXPECT_EQ(modCommon::TimeZoneOffset(winter), -5);
    EXPECT_EQ(summer.bias, 300);
    EXPECT_EQ(summer.daylightBias, -60);
    EXPECT_EQ(summer.state, modCommon::ZoneState::Daylight);
    EXPECT_EQ(modCommon::TimeZoneOffset(summer), -4);
}

TEST(SystemClockTest, SouthOfTheEquatorDaylightTimeIsInJanuary)
{
    const Zone sydney("AEST-10AEDT,M10.1.0,M4.1.0/3");

    const auto january = ClockAt(2006, 1, 15).Zone();
    const auto july = ClockAt(2006, 7, 15).Zone();

    EXPECT_EQ(january.state, modCommon::ZoneState::Daylight);
    EXPECT_EQ(modCommon::TimeZoneOffset(january), 11);
    EXPECT_EQ(july.state, modCommon::ZoneState::Standard);
    EXPECT_EQ(modCommon::TimeZoneOffset(july), 10);
}

TEST(SystemClockTest, AZoneWithoutDaylightTimeHasTheStateUnknown)
{
    const Zone india("IST-5:30");

    const auto zone = ClockAt(2006, 7, 15).Zone();

    EXPECT_EQ(zone.bias, -330);
    EXPECT_EQ(zone.daylightBias, 0);
    EXPECT_EQ(zone.state, modCommon::ZoneState::Unknown);
}

TEST(CheckMomentTest, OnlyADateWithATimeIsTaken)
{
    EXPECT_EQ(CheckMoment("2006-03-15T12:00:00"), "");
    for (const char* text : {"", "2006-03-15", "2006-03-15 12:00:00", "2006-02-30T12:00:00"})
        EXPECT_EQ(CheckMoment(text),
                  "\"" + std::string(text) + "\" is not of the form YYYY-MM-DDThh:mm:ss");
}

}  // namespace
}  // namespace clb
