#include <gtest/gtest.h>

#include <limits>

#include "base/Money.h"
#include "base/RuntimeError.h"

namespace clb {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

std::int32_t NumberOf(void (*action)())
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

TEST(MoneyTest, KeepsFourDecimalsOfAText)
{
    EXPECT_EQ(Money::Parse("12.3456").Scaled(), 123456);
    EXPECT_EQ(Money::Parse("-0.0001").Scaled(), -1);
    EXPECT_EQ(Money::Parse("1e3").Scaled(), 10000000);
}

TEST(MoneyTest, RoundsTheFifthDecimalHalfToEven)
{
    EXPECT_EQ(Money::Parse("0.00005").Scaled(), 0);
    EXPECT_EQ(Money::Parse("0.00015").Scaled(), 2);
    EXPECT_EQ(Money::Parse("0.00025").Scaled(), 2);
    EXPECT_EQ(Money::Parse("0.000250001").Scaled(), 3);
    EXPECT_EQ(Money::Parse("-0.00015").Scaled(), -2);
}

TEST(MoneyTest, ReadsTheWholeRangeAndNotAUnitMore)
{
    EXPECT_EQ(Money::Parse("922337203685477.5807").Scaled(), kMost);
    EXPECT_EQ(Money::Parse("-922337203685477.5808").Scaled(), kLeast);
    EXPECT_EQ(NumberOf([] { Money::Parse("922337203685477.5808"); }), errors::Overflow);
    EXPECT_EQ(NumberOf([] { Money::Parse("1e300"); }), errors::Overflow);
}

TEST(MoneyTest, RefusesATextThatIsNoNumber)
{
    EXPECT_EQ(NumberOf([] { Money::Parse("-530,86"); }), errors::TypeMismatch);
    EXPECT_EQ(NumberOf([] { Money::Parse(""); }), errors::TypeMismatch);
    EXPECT_FALSE(Money::TryParse("twelve").has_value());
}

TEST(MoneyTest, SumsAndDifferencesOutOfRangeAreErrors)
{
    EXPECT_EQ(NumberOf([] { Money::FromScaled(kMost) + Money::FromScaled(1); }), errors::Overflow);
    EXPECT_EQ(NumberOf([] { Money::FromScaled(kLeast) - Money::FromScaled(1); }), errors::Overflow);
    EXPECT_EQ(NumberOf([] { -Money::FromScaled(kLeast); }), errors::Overflow);
}

TEST(MoneyTest, PlainTextHasNoGroupingAndNoTrailingZeros)
{
    EXPECT_EQ(Money::Parse("-45.50").ToText(), "-45.5");
    EXPECT_EQ(Money::Parse("100.00").ToText(), "100");
    EXPECT_EQ(Money::Parse("1234567.0001").ToText(), "1234567.0001");
    EXPECT_EQ(Money::Parse("-0.05").ToText(), "-0.05");
    EXPECT_EQ(Money().ToText(), "0");
    EXPECT_EQ(Money::FromScaled(kLeast).ToText(), "-922337203685477.5808");
}

TEST(MoneyTest, GroupedTextRoundsHalfAwayFromZero)
{
    EXPECT_EQ(Money::Parse("1234567.895").Grouped(), "1,234,567.90");
    EXPECT_EQ(Money::Parse("-1234.005").Grouped(), "-1,234.01");
    EXPECT_EQ(Money::Parse("999.994").Grouped(), "999.99");
    EXPECT_EQ(Money().Grouped(), "0.00");
    EXPECT_EQ(Money::Parse("-0.004").Grouped(), "0.00");
}

TEST(MoneyTest, DollarTextPutsTheSignInFront)
{
    EXPECT_EQ(Money::Parse("-45.5").Dollars(), "-$45.50");
    EXPECT_EQ(Money::Parse("1234.5").Dollars(), "$1234.50");
    EXPECT_EQ(Money::Parse("0.125").Dollars(), "$0.13");
}

TEST(MoneyTest, HalvesToCentsHalfToEven)
{
    EXPECT_EQ(Money::Parse("100").HalfToCents(), Money::Parse("50"));
    EXPECT_EQ(Money::Parse("0.01").HalfToCents(), Money());
    EXPECT_EQ(Money::Parse("0.03").HalfToCents(), Money::Parse("0.02"));
    EXPECT_EQ(Money::Parse("-0.03").HalfToCents(), Money::Parse("-0.02"));
    EXPECT_EQ(Money::Parse("0.0101").HalfToCents(), Money::Parse("0.01"));
}

}  // namespace
}  // namespace clb
