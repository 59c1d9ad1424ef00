#include <gtest/gtest.h>

#include <string>

#include "typed/TypedDate.h"

namespace clb {
namespace {

using DateText::Order;

const DateContext kMarch = {*Date::Of(2026, 3, 14, 9, 30), {2026, 3}};

std::string Read(std::string_view text, Order order, const DateContext& context = kMarch)
{
    const auto date = ReadTypedDate(text, context, {order, {}});
    return date ? date->ToIso() : "none";
}

TEST(TypedDateTest, TodayIsTheDayWithoutATime)
{
    for (const char* text : {"t", "T", "today", "Today", " t "})
        EXPECT_EQ(Read(text, Order::DayMonthYear), "2026-03-14") << text;
}

TEST(TypedDateTest, ADayIsOneOfTheShownMonth)
{
    const DateContext february = {kMarch.today, {2027, 2}};
    EXPECT_EQ(Read("3", Order::MonthDayYear, february), "2027-02-03");
    EXPECT_EQ(Read("03.", Order::DayMonthYear, february), "2027-02-03");
    EXPECT_EQ(Read("29", Order::MonthDayYear, february), "none");
    EXPECT_EQ(Read("0", Order::MonthDayYear, february), "none");
    EXPECT_EQ(Read("2026", Order::MonthDayYear, february), "none");
    EXPECT_EQ(Read("9", Order::MonthDayYear, {kMarch.today, {}}), "2026-03-09");
}

TEST(TypedDateTest, TwoNumbersFollowTheUsersOrder)
{
    for (const char* text : {"4/5", "4-5", "4.5", "04/05", "4 5"}) {
        EXPECT_EQ(Read(text, Order::MonthDayYear), "2026-04-05") << text;
        EXPECT_EQ(Read(text, Order::YearMonthDay), "2026-04-05") << text;
        EXPECT_EQ(Read(text, Order::DayMonthYear), "2026-05-04") << text;
    }
    EXPECT_EQ(Read("3.11.", Order::MonthDayYear, {kMarch.today, {2026, 11}}), "2026-11-03");
    EXPECT_EQ(Read("13/3", Order::MonthDayYear), "none");
    EXPECT_EQ(Read("3/13", Order::DayMonthYear), "none");
}

TEST(TypedDateTest, AMissingYearIsTheShownOneButForTheTurnOfTheYear)
{
    const DateContext january = {kMarch.today, {2026, 1}};
    const DateContext november = {kMarch.today, {2026, 11}};
    const DateContext december = {kMarch.today, {2025, 12}};
    EXPECT_EQ(Read("12/30", Order::MonthDayYear, january), "2025-12-30");
    EXPECT_EQ(Read("11/30", Order::MonthDayYear, january), "2025-11-30");
    EXPECT_EQ(Read("10/30", Order::MonthDayYear, january), "2026-10-30");
    EXPECT_EQ(Read("1/2", Order::MonthDayYear, december), "2026-01-02");
    EXPECT_EQ(Read("2/2", Order::MonthDayYear, december), "2025-02-02");
    EXPECT_EQ(Read("3/11", Order::MonthDayYear, november), "2026-03-11");
    EXPECT_EQ(Read("2/29", Order::MonthDayYear, {kMarch.today, {2028, 3}}), "2028-02-29");
    EXPECT_EQ(Read("2/29", Order::MonthDayYear, {kMarch.today, {2026, 3}}), "none");
}

TEST(TypedDateTest, ThreeNumbersFollowTheUsersOrderOrBeginWithTheYear)
{
    EXPECT_EQ(Read("11/3/26", Order::MonthDayYear), "2026-11-03");
    EXPECT_EQ(Read("3.11.2026", Order::DayMonthYear), "2026-11-03");
    EXPECT_EQ(Read("26-11-3", Order::YearMonthDay), "2026-11-03");
    EXPECT_EQ(Read("3/11/30", Order::DayMonthYear), "1930-11-03");
    for (const Order order : {Order::MonthDayYear, Order::DayMonthYear, Order::YearMonthDay})
        for (const char* text : {"2026-11-03", "2026-11-3", "2026/11/03", "2026.11.3"})
            EXPECT_EQ(Read(text, order), "2026-11-03") << text;
    EXPECT_EQ(Read("13/3/26", Order::MonthDayYear), "none");
    EXPECT_EQ(Read("2/29/2026", Order::MonthDayYear), "none");
    EXPECT_EQ(Read("1/2/126", Order::MonthDayYear), "none");
}

TEST(TypedDateTest, MonthsHaveNames)
{
    for (const char* text : {"Nov 3", "nov 3", "3 Nov", "3. November", "November 3", "3-nov"})
        EXPECT_EQ(Read(text, Order::MonthDayYear, {kMarch.today, {2026, 11}}), "2026-11-03")
            << text;
    for (const char* text : {"Nov 3 2027", "3 Nov 27", "November 3, 2027", "3-Nov-2027"})
        EXPECT_EQ(Read(text, Order::DayMonthYear), "2027-11-03") << text;
    EXPECT_EQ(Read("Ju 3", Order::MonthDayYear), "none");
    EXPECT_EQ(Read("Nov", Order::MonthDayYear), "none");
    EXPECT_EQ(Read("Nov 31", Order::MonthDayYear), "none");
    EXPECT_EQ(Read("Novx 3", Order::MonthDayYear), "none");
}

TEST(TypedDateTest, MonthsHaveTheUsersNamesToo)
{
    const DateHabits german = {Order::DayMonthYear, {{"März", 3}, {"Mai", 5}, {"Dezember", 12}}};
    EXPECT_EQ(ReadTypedDate("3. mär", kMarch, german)->ToIso(), "2026-03-03");
    EXPECT_EQ(ReadTypedDate("3. Mai", kMarch, german)->ToIso(), "2026-05-03");
    EXPECT_EQ(ReadTypedDate("24 dez 2025", kMarch, german)->ToIso(), "2025-12-24");
    EXPECT_EQ(ReadTypedDate("4 July 2026", kMarch, german)->ToIso(), "2026-07-04");
}

TEST(TypedDateTest, OtherTextsAreNoDates)
{
    for (const char* text : {"", " ", "x", "1/", "/1", "1//2", "1/2/", "1/2/3/4", "1,2", "-1", "+1",
                             "3 3 3 3", "1 a 2", "99999999999999999999", "3/99999999999", "today 3",
                             "\xFF\xFE", "12:30", "1.2.3."})
        EXPECT_EQ(Read(text, Order::MonthDayYear), "none") << text;
}

}  // namespace
}  // namespace clb
