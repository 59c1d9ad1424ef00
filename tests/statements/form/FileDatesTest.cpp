#include <gtest/gtest.h>

#include "statements/form/FileDates.h"

namespace clb {
namespace {

using DateText::Order;

FileDates Of(std::initializer_list<const char*> dates)
{
    FileDates of;
    for (const char* const date : dates)
        of.Add(date);
    return of;
}

TEST(FileDates, OneClearDateSettlesTheOrder)
{
    const FileDates dates = Of({"03/02/2024", "25/02/2024"});

    EXPECT_FALSE(dates.Open({}, Order::MonthDayYear));
    EXPECT_EQ(dates.Settled({}, Order::MonthDayYear), Order::DayMonthYear);
}

TEST(FileDates, AnOpenOrderIsAsked)
{
    const FileDates dates = Of({"03/02/2024"});
    const auto question = dates.Open({}, Order::MonthDayYear);

    ASSERT_TRUE(question);
    EXPECT_EQ(question->options, (std::vector<std::string>{"dmy", "mdy"}));
    EXPECT_EQ(question->proposed, "mdy");
    EXPECT_EQ(dates.Settled({}, Order::MonthDayYear), Order::MonthDayYear);
    EXPECT_EQ(dates.Settled({}, Order::YearMonthDay), Order::DayMonthYear);
    EXPECT_FALSE(dates.Open(Order::DayMonthYear, Order::MonthDayYear));
    EXPECT_EQ(dates.Settled(Order::DayMonthYear, Order::MonthDayYear), Order::DayMonthYear);
}

TEST(FileDates, DatesThatNoOrderFitsAreAsked)
{
    const auto question = Of({"31/12/2024", "12/31/2024"}).Open({}, Order::MonthDayYear);

    ASSERT_TRUE(question);
    EXPECT_EQ(question->options.size(), 3U);
}

TEST(FileDates, AFileWithoutDatesAsksNothing)
{
    EXPECT_FALSE(Of({}).Open({}, Order::MonthDayYear));
    EXPECT_FALSE(Of({"none"}).Open({}, Order::MonthDayYear));
}

TEST(FileDates, ThePatternShowsHowDatesAreWritten)
{
    EXPECT_EQ(Of({"1/ 2'24"}).Pattern(), "9/9'9");
    EXPECT_EQ(Of({"2024-02-29"}).Pattern(), "9-9-9");
    EXPECT_EQ(Of({}).Pattern(), "");
}

}  // namespace
}  // namespace clb
