#include <gtest/gtest.h>

#include "base/Numeric.h"
#include "base/RuntimeError.h"

namespace clb {
namespace {

class NumericTexts : public testing::TestWithParam<std::pair<const char*, double>> {};

TEST_P(NumericTexts, AreReadAsTheirNumber)
{
    const auto [text, value] = GetParam();

    ASSERT_TRUE(IsNumeric(text)) << text;
    EXPECT_DOUBLE_EQ(ParseDouble(text), value) << text;
}

INSTANTIATE_TEST_SUITE_P(
    All, NumericTexts,
    testing::Values(std::pair{"0", 0.0}, std::pair{"12", 12.0}, std::pair{" 12 ", 12.0},
                    std::pair{"-12.5", -12.5}, std::pair{"12.5-", -12.5}, std::pair{"+3", 3.0},
                    std::pair{"3+", 3.0}, std::pair{"(4.25)", -4.25}, std::pair{"$5", 5.0},
                    std::pair{"-$5", -5.0}, std::pair{"$-5", -5.0}, std::pair{"($5)", -5.0},
                    std::pair{"5$", 5.0}, std::pair{"1,234", 1234.0},
                    std::pair{"12,345,678.9", 12345678.9}, std::pair{".5", 0.5},
                    std::pair{"5.", 5.0}, std::pair{"1e3", 1000.0}, std::pair{"1.5E-3", 0.0015},
                    std::pair{"- 7", -7.0}, std::pair{"007", 7.0}));

class OtherTexts : public testing::TestWithParam<const char*> {};

TEST_P(OtherTexts, AreNoNumbers)
{
    EXPECT_FALSE(IsNumeric(GetParam())) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(All, OtherTexts,
                         testing::Values("", " ", "-", "$", ".", "-530,86", "1,23", "1234,567",
                                         "1,2345", ",123", "1,234,56", "--1", "-1-", "(1", "1)",
                                         "(-1)", "$$1", "1e", "e5", "1 2", "12a", "0x10", "1.2.3",
                                         "NaN", "inf", "1,234e", "1.234,5"));

TEST(NumericTest, WholeNumbersRoundHalfToEven)
{
    EXPECT_EQ(ParseLong("2.5"), 2);
    EXPECT_EQ(ParseLong("3.5"), 4);
    EXPECT_EQ(ParseLong("-2.5"), -2);
    EXPECT_EQ(ParseLong("2147483647"), 2147483647);
}

TEST(NumericTest, AWholeNumberBeyond32BitsIsAnError)
{
    try {
        ParseLong("2147483648");
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), errors::Overflow);
        EXPECT_STREQ(error.what(), "Overflow");
    }
}

TEST(NumericTest, AnotherTextIsATypeMismatch)
{
    try {
        ParseLong("20x6");
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), errors::TypeMismatch);
        EXPECT_STREQ(error.what(), "Type mismatch");
    }
}

TEST(NumericTest, ShortestTextsReadBack)
{
    EXPECT_EQ(ToText(0.1), "0.1");
    EXPECT_EQ(ToText(10.0), "10");
    EXPECT_EQ(ToText(4.75F), "4.75");
    EXPECT_EQ(ToText(-0.0), "0");
    EXPECT_EQ(ParseDouble(ToText(1.0 / 3.0)), 1.0 / 3.0);
}

TEST(NumericTest, TruncatingCutsOffAndSaysWhetherAnythingWasLost)
{
    const auto truncated = [](const char* text) {
        return Numeric::Read(text)->Truncate(4).value();
    };

    EXPECT_EQ(truncated("1.23456").whole, 12345);
    EXPECT_FALSE(truncated("1.23456").exact);
    EXPECT_EQ(truncated("-1.23456").whole, -12345);
    EXPECT_EQ(truncated("1.234500").whole, 12345);
    EXPECT_TRUE(truncated("1.234500").exact);
    EXPECT_EQ(truncated("0.00009").whole, 0);
    EXPECT_FALSE(truncated("0.00009").exact);
    EXPECT_FALSE(truncated("1e-30").exact);
    EXPECT_TRUE(truncated("0.00000").exact);
    EXPECT_EQ(truncated("2e3").whole, 20'000'000);
}

TEST(NumericTest, TruncatingGivesNothingBeyond64Bits)
{
    const auto fits = [](const char* text) { return Numeric::Read(text)->Truncate(4).has_value(); };

    EXPECT_TRUE(fits("922337203685477.5807"));
    EXPECT_TRUE(fits("922337203685477.58079"));
    EXPECT_FALSE(fits("922337203685477.5808"));
    EXPECT_TRUE(fits("-922337203685477.5808"));
    EXPECT_FALSE(fits("1e300"));
}

}  // namespace
}  // namespace clb
