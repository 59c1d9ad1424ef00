#include <gtest/gtest.h>

#include "base/Date.h"

namespace clb {
namespace {

TEST(DateTest, TheZeroDateIsThirtyDecember1899)
{
    EXPECT_EQ(Date().ToIso(), "1899-12-30");
    EXPECT_EQ(Date::Of(1900, 1, 1)->Days(), 2);
}

TEST(DateTest, TextHasATimeOnlyWhenItIsNotMidnight)
{
    EXPECT_EQ(Date::Of(2006, 3, 5)->ToIso(), "2006-03-05");
    EXPECT_EQ(Date::Of(2006, 3, 5, 12, 30, 0)->ToIso(), "2006-03-05 12:30:00");
    EXPECT_EQ(Date::FromIso("2006-03-05 12:30:00"), Date::Of(2006, 3, 5, 12, 30, 0));
    EXPECT_EQ(Date::FromIso("2006-03-05T12:30:00"), Date::Of(2006, 3, 5, 12, 30, 0));
}

TEST(DateTest, DaysThatDoNotExistAreNoDates)
{
    EXPECT_FALSE(Date::Of(2007, 2, 29).has_value());
    EXPECT_TRUE(Date::Of(2008, 2, 29).has_value());
    EXPECT_FALSE(Date::Of(2006, 13, 1).has_value());
    EXPECT_FALSE(Date::Of(99, 1, 1).has_value());
    EXPECT_FALSE(Date::FromIso("2006-3-05").has_value());
    EXPECT_FALSE(Date::FromIso("2006-03-05 25:00:00").has_value());
    EXPECT_FALSE(Date::FromIso("2006-03-05 ").has_value());
}

TEST(DateTest, StatementDatesAreYearMonthDay)
{
    EXPECT_EQ(DateText::YearMonthDay("2006/3/05"), Date::Of(2006, 3, 5));
    EXPECT_FALSE(DateText::YearMonthDay("2006/13/01").has_value());
    EXPECT_FALSE(DateText::YearMonthDay("2006/3/").has_value());
    EXPECT_FALSE(DateText::YearMonthDay("2006/3").has_value());
}

TEST(DateTest, RecordDatesOfAKnownOrderAreReadInNoOther)
{
    using DateText::InOrder;
    using DateText::Order;
    EXPECT_EQ(InOrder("1/15/06", Order::MonthDayYear), Date::Of(2006, 1, 15));
    EXPECT_EQ(InOrder("2006-01-15", Order::MonthDayYear), Date::Of(2006, 1, 15));
    EXPECT_EQ(InOrder("15/1/06", Order::DayMonthYear), Date::Of(2006, 1, 15));
    EXPECT_EQ(InOrder(" 1-2 -1930", Order::DayMonthYear), Date::Of(1930, 2, 1));
    EXPECT_EQ(InOrder("15.1.2006", Order::DayMonthYear), Date::Of(2006, 1, 15));
    EXPECT_EQ(InOrder("2006.01.15", Order::YearMonthDay), Date::Of(2006, 1, 15));
    EXPECT_FALSE(InOrder("1.15.2006", Order::MonthDayYear));
    EXPECT_FALSE(InOrder("1/15/06", Order::DayMonthYear));
    EXPECT_FALSE(InOrder("2006/1/15", Order::DayMonthYear));
    EXPECT_FALSE(InOrder("15/1", Order::DayMonthYear));
    EXPECT_EQ(InOrder("2006/1/15", Order::YearMonthDay), Date::Of(2006, 1, 15));
    EXPECT_EQ(InOrder("30-12-31", Order::YearMonthDay), Date::Of(1930, 12, 31));
    EXPECT_FALSE(InOrder("2006/15/1", Order::YearMonthDay));
    EXPECT_FALSE(InOrder("15/1/2006", Order::YearMonthDay));
    EXPECT_FALSE(InOrder("soon", Order::YearMonthDay));
}

TEST(DateTest, RecordDatesAreMonthDayYear)
{
    EXPECT_EQ(DateText::MonthDayYear("1/15/06"), Date::Of(2006, 1, 15));
    EXPECT_EQ(DateText::MonthDayYear(" 1/ 5/2006"), Date::Of(2006, 1, 5));
    EXPECT_EQ(DateText::MonthDayYear("12-31-29"), Date::Of(2029, 12, 31));
    EXPECT_EQ(DateText::MonthDayYear("12/31/30"), Date::Of(1930, 12, 31));
    EXPECT_EQ(DateText::MonthDayYear("2006-01-15"), Date::Of(2006, 1, 15));
    EXPECT_FALSE(DateText::MonthDayYear("15/1/06").has_value());
    EXPECT_FALSE(DateText::MonthDayYear("1/15").has_value());
    EXPECT_FALSE(DateText::MonthDayYear("Jan/15/06").has_value());
}

TEST(MonthTest, StepsAcrossYearEnds)
{
    EXPECT_EQ((Month{2006, 1}.Previous()), (Month{2005, 12}));
    EXPECT_EQ((Month{2005, 12}.Next()), (Month{2006, 1}));
    EXPECT_EQ((Month{2006, 6}.Next()), (Month{2006, 7}));
    EXPECT_EQ((Month{2006, 6}.Previous()), (Month{2006, 5}));
}

}  // namespace
}  // namespace clb
