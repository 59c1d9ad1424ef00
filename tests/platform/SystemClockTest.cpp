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

struct Place {
    const char* zone;
    const char* moment;
    std::int32_t offset;
};

TEST(SystemClockTest, TheOffsetIsThatOfThePlaceAtTheMoment)
{
    constexpr Place kPlaces[] = {{"America/New_York", "2006-01-15T08:05:03", -5},
                                 {"America/New_York", "2006-07-15T20:05:03", -4},
                                 {"Europe/Berlin", "2006-12-31T23:59:59", 1},
                                 {"Europe/Berlin", "2006-07-01T00:00:00", 2},
                                 // Half hours are rounded to the even hour.
                                 {"Asia/Kolkata", "2006-03-05T10:00:00", 6},
                                 {"Asia/Kathmandu", "2006-03-05T10:00:00", 6},
                                 {"Pacific/Marquesas", "2006-03-05T10:00:00", -10},
                                 {"America/St_Johns", "2006-01-15T10:00:00", -4},
                                 {"America/St_Johns", "2006-07-15T10:00:00", -2},
                                 {"Australia/Adelaide", "2006-01-15T10:00:00", 10},
                                 {"Australia/Adelaide", "2006-07-15T10:00:00", 10},
                                 {"Australia/Lord_Howe", "2006-01-15T10:00:00", 11},
                                 {"Australia/Lord_Howe", "2006-07-15T10:00:00", 10},
                                 {"Asia/Tokyo", "2006-07-15T10:00:00", 9},
                                 {"Pacific/Kiritimati", "2006-07-15T10:00:00", 14},
                                 {"UTC", "2006-07-15T10:00:00", 0},
                                 {"Europe/London", "2006-07-15T10:00:00", 1}};
    for (const Place& place : kPlaces) {
        const Zone zone(place.zone);
        const FixedClock clock(Date::FromIso(place.moment).value());

        EXPECT_EQ(modCommon::TimeZoneOffset(clock.Zone()), place.offset)
            << place.zone << " " << place.moment;
    }
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
