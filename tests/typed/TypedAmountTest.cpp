#include <gtest/gtest.h>

#include <string>

#include "typed/TypedAmount.h"

namespace clb {
namespace {

const AmountHabits kFixed;
const AmountHabits kGerman = {',', "."};
const AmountHabits kFrench = {',', "\u202F"};
const AmountHabits kSwiss = {'.', "'"};

std::string Read(std::string_view text, const AmountHabits& habits = kFixed)
{
    const TypedAmount amount = ReadTypedAmount(text, habits);
    EXPECT_EQ(amount.value.has_value(), amount.refusal.empty()) << text;
    return amount.value ? amount.value->ToText() : amount.refusal;
}

constexpr const char* kNoNumber = "Please enter a number, for example 1,234.50.";

TEST(TypedAmountTest, TheFixedRuleHoldsEverywhere)
{
    for (const AmountHabits& habits : {kFixed, kGerman, kFrench, kSwiss}) {
        EXPECT_EQ(Read("1,234.50", habits), "1234.5");
        EXPECT_EQ(Read("-45.5", habits), "-45.5");
        EXPECT_EQ(Read("(5)", habits), "-5");
        EXPECT_EQ(Read("12.345678", habits), "12.3457");
        EXPECT_EQ(Read("$12", habits), "12");
    }
}

TEST(TypedAmountTest, TheUsersOwnFormIsTakenToo)
{
    EXPECT_EQ(Read("12,50", kGerman), "12.5");
    EXPECT_EQ(Read("-1.234,50", kGerman), "-1234.5");
    EXPECT_EQ(Read("1.234.567", kGerman), "1234567");
    EXPECT_EQ(Read(",5", kGerman), "0.5");
    EXPECT_EQ(Read("12,50 \u20AC", kGerman), "12.5");
    EXPECT_EQ(Read("1\u202F234,50", kFrench), "1234.5");
    EXPECT_EQ(Read("1 234,50", kFrench), "1234.5");
    EXPECT_EQ(Read("1'234.50", kSwiss), "1234.5");
    EXPECT_EQ(Read("\u221245,00", kGerman), "-45");
}

TEST(TypedAmountTest, WhatBothFormsReadDifferentlyIsAskedAbout)
{
    EXPECT_EQ(Read("1,234", kGerman),
              "\"1,234\" can mean 1.234 or 1234. Please enter 1.2340 or 1234.");
    EXPECT_EQ(Read("1.234", kGerman),
              "\"1.234\" can mean 1234 or 1.234. Please enter 1234 or 1.2340.");
    EXPECT_EQ(Read("1.2340", kGerman), "1.234");
    EXPECT_EQ(Read("1234", kGerman), "1234");
    EXPECT_EQ(Read("1,234"), "1234");
    EXPECT_EQ(Read("2*1.234", kGerman),
              "\"1.234\" can mean 1234 or 1.234. Please enter 1234 or 1.2340.");
}

TEST(TypedAmountTest, CalculationsAreExact)
{
    EXPECT_EQ(Read("12.50+3*2"), "18.5");
    EXPECT_EQ(Read("(12.50+3)*2"), "31");
    EXPECT_EQ(Read("10-2-3"), "5");
    EXPECT_EQ(Read("-(2+3)"), "-5");
    EXPECT_EQ(Read("2*-3"), "-6");
    EXPECT_EQ(Read("100/8"), "12.5");
    EXPECT_EQ(Read("1,000+1"), "1001");
    EXPECT_EQ(Read("12,50+1,25", kGerman), "13.75");
    EXPECT_EQ(Read("3\u00D72\u00F74"), "1.5");
    EXPECT_EQ(Read("0.1+0.2"), "0.3");
    EXPECT_EQ(Read("10/3*3"), "10");
}

TEST(TypedAmountTest, AResultHasTwoDecimals)
{
    EXPECT_EQ(Read("10/3"), "3.33");
    EXPECT_EQ(Read("20/3"), "6.67");
    EXPECT_EQ(Read("-20/3"), "-6.67");
    EXPECT_EQ(Read("0.01/2"), "0.01");
    EXPECT_EQ(Read("-0.01/2"), "-0.01");
    EXPECT_EQ(Read("1/1000"), "0");
}

TEST(TypedAmountTest, OnlyTwoMeaningsAreAmbiguous)
{
    EXPECT_TRUE(ReadTypedAmount("1,234", kGerman).ambiguous);
    EXPECT_TRUE(ReadTypedAmount("2*1,234", kGerman).ambiguous);
    EXPECT_FALSE(ReadTypedAmount("x", kGerman).ambiguous);
    EXPECT_FALSE(ReadTypedAmount("1,23", kGerman).ambiguous);
}

TEST(TypedAmountTest, DatesAreNoCalculations)
{
    EXPECT_EQ(Read("2026/3/5"), "This is a date. Please enter a number, for example 1,234.50.");
    EXPECT_EQ(Read("3/5/2026"), "This is a date. Please enter a number, for example 1,234.50.");
    EXPECT_EQ(Read("100/4/5"), "5");
}

TEST(TypedAmountTest, OtherTextsAreRefused)
{
    for (const char* text : {"", "x", "+", "1++", "*2", "(1", "1)", "1 2 3", "1..2", "()",
                             "1,2,3+1", "\xFF", "1;2", "1e"})
        EXPECT_EQ(Read(text), kNoNumber) << text;
    EXPECT_EQ(Read("1/0"), "This divides by zero.");
    EXPECT_EQ(Read("1/(2-2)"), "This divides by zero.");
    EXPECT_EQ(Read("99999999999999*99999999"), "This number is too large for the column.");
    EXPECT_EQ(Read("9e18"), "This number is too large for the column.");
    EXPECT_EQ(Read(std::string(100000, '(')), kNoNumber);
    EXPECT_EQ(Read(std::string(100000, '-') + "1"), "1");
}

}  // namespace
}  // namespace clb
