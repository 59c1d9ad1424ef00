#include <gtest/gtest.h>

#include "typed/TypedMonth.h"

namespace clb {
namespace {

/// The month as yyyy-mm, or "none". Today is 2026-11-22; March 2024 is shown.
std::string Typed(std::string_view text, const DateHabits& habits = {})
{
    const auto month =
        ReadTypedMonth(text, {Date::FromIso("2026-11-22").value(), {2024, 3}}, habits);
    if (!month)
        return "none";
    return std::to_string(month->year) + "-" + std::to_string(month->period);
}

TEST(TypedMonthTest, YearAndMonthInAnyOrder)
{
    for (const char* text : {"2025-7", "2025/07", "2025 7", "2025.7", "7/2025", "07.2025", "7-25",
                             "25-7", "7 2025", " 2025-07 "})
        EXPECT_EQ(Typed(text), "2025-7") << text;
}

TEST(TypedMonthTest, NamesOfMonths)
{
    for (const char* text :
         {"mar 24", "Mar. 24", "march 2024", "2024 mar", "MAR24", "24 March", "mar-24"})
        EXPECT_EQ(Typed(text), "2024-3") << text;
    EXPECT_EQ(Typed("sept 99"), "1999-9");
}

TEST(TypedMonthTest, NamesInTheUsersLanguage)
{
    DateHabits german;
    german.months = {{"Dezember", 12}, {"Mai", 5}};
    EXPECT_EQ(Typed("dez 25", german), "2025-12");
    EXPECT_EQ(Typed("mai", german), "2024-5");
}

TEST(TypedMonthTest, WhatIsLeftOutIsThatOfTheShownMonth)
{
    EXPECT_EQ(Typed("7"), "2024-7");
    EXPECT_EQ(Typed("aug"), "2024-8");
    EXPECT_EQ(Typed("2019"), "2019-3");
}

TEST(TypedMonthTest, ThePresentMonth)
{
    EXPECT_EQ(Typed("t"), "2026-11");
    EXPECT_EQ(Typed("Today"), "2026-11");
}

TEST(TypedMonthTest, AnythingElseIsNoMonth)
{
    for (const char* text :
         {"",      " ",         "13",      "0",  "2024-13",  "2024-0", "2024-3-1", "3/4",
          "11-12", "2024-2025", "mar apr", "ma", "ju",       "m 24",   "mar 5",    "202",
          "20245", "2024-",     "2024--3", "x",  "3 mar 24", "-3"})
        EXPECT_EQ(Typed(text), "none") << text;
}

}  // namespace
}  // namespace clb
