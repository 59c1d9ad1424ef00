#include <gtest/gtest.h>

#include "base/modCommon.h"

namespace clb::modCommon {
namespace {

TEST(modCommonTest, LargerAndSmaller)
{
    EXPECT_EQ(Max(-3, 2), 2);
    EXPECT_EQ(Min(-3, 2), -3);
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
