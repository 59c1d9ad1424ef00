#include <gtest/gtest.h>

#include <limits>

#include "base/modCommon.h"

namespace clb::modCommon {
namespace {

TEST(modCommonTest, LargerAndSmaller)
{
    EXPECT_EQ(Max(-3, 2), 2);
    EXPECT_EQ(Min(-3, 2), -3);
    EXPECT_EQ(Max(1, 2), 2);
    EXPECT_EQ(Max(-1, -2), -1);
    EXPECT_EQ(Min(1, 2), 1);
    EXPECT_EQ(Min(-1, -2), -2);
    EXPECT_EQ(Min(5, 5), 5);
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(Max(kLeast, kMost), kMost);
    EXPECT_EQ(Min(kLeast, kMost), kLeast);
}

TEST(modCommonTest, AZoneWestOfGreenwichIsNegative)
{
    EXPECT_EQ(TimeZoneOffset({300, 0, -60, ZoneState::Standard}), -5);
    EXPECT_EQ(TimeZoneOffset({300, 0, -60, ZoneState::Daylight}), -4);
    EXPECT_EQ(TimeZoneOffset({300, 0, -60, ZoneState::Unknown}), -5);
}

TEST(modCommonTest, HalfHoursGoToTheEvenHour)
{
    EXPECT_EQ(TimeZoneOffset({-330, 0, 0, ZoneState::Standard}), 6);
    EXPECT_EQ(TimeZoneOffset({-270, 0, 0, ZoneState::Standard}), 4);
    EXPECT_EQ(TimeZoneOffset({210, 0, 0, ZoneState::Standard}), -4);
    EXPECT_EQ(TimeZoneOffset({-345, 0, 0, ZoneState::Standard}), 6);
}

}  // namespace
}  // namespace clb::modCommon
