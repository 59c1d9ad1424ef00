#include <gtest/gtest.h>

#include "statements/form/FileAmounts.h"

namespace clb {
namespace {

FileAmounts Of(std::initializer_list<const char*> amounts)
{
    FileAmounts of;
    for (const char* const amount : amounts)
        of.Add(amount);
    return of;
}

TEST(FileAmounts, OneClearAmountSettlesTheMark)
{
    EXPECT_EQ(Of({"1,234", "5.00"}).Read("1,234", {}), Money::FromUnits(1234));
    EXPECT_EQ(Of({"1,234", "5,00"}).Read("1,234", {}), Money::Parse("1.234"));
    EXPECT_FALSE(Of({"1,234", "5.00"}).Open({}));
}

TEST(FileAmounts, AmountsThatMeanTheSameLeaveNothingOpen)
{
    EXPECT_FALSE(Of({"5", "-17", "1000000"}).Open({}));
    EXPECT_FALSE(Of({}).Open({}));
}

TEST(FileAmounts, AnOpenMarkIsAskedAndProposedAsThousands)
{
    const auto comma = Of({"5", "1,234"}).Open({});
    const auto point = Of({"1.234"}).Open({});

    ASSERT_TRUE(comma && point);
    EXPECT_EQ(comma->proposed, ".");
    EXPECT_EQ(point->proposed, ",");
    EXPECT_EQ(point->options, (std::vector<std::string>{".", ","}));
    EXPECT_EQ(Of({"1.234"}).Read("1.234", {}), Money::FromUnits(1234));
    EXPECT_FALSE(Of({"1.234"}).Open('.'));
    EXPECT_EQ(Of({"1.234"}).Read("1.234", '.'), Money::Parse("1.234"));
}

TEST(FileAmounts, OtherNumbersSettleItIfTheAmountsDoNot)
{
    FileAmounts amounts = Of({"1.234"});
    amounts.AddOther("100,50");

    EXPECT_FALSE(amounts.Open({}));
    EXPECT_EQ(amounts.Read("1.234", {}), Money::FromUnits(1234));

    FileAmounts settled = Of({"1.234", "5.00"});
    settled.AddOther("100,50");
    EXPECT_EQ(settled.Read("1.234", {}), Money::Parse("1.234"));
}

TEST(FileAmounts, OtherNumbersDoNotSettleAmountsWithBothMarks)
{
    FileAmounts amounts = Of({"-1,004", "1.000"});
    amounts.AddOther("100.00");

    EXPECT_TRUE(amounts.Open({}));
    EXPECT_FALSE(amounts.Open('.'));
    EXPECT_FALSE(Of({"-1,004", "1.000", "5.00"}).Open({}));
}

TEST(FileAmounts, BothMarksInOneFileAreReadEachForItself)
{
    const FileAmounts mixed = Of({"5.00", "6,00"});
    EXPECT_FALSE(mixed.Open({}));
    EXPECT_EQ(mixed.Read("5.00", {}), Money::FromUnits(5));
    EXPECT_EQ(mixed.Read("6,00", {}), Money::FromUnits(6));

    const FileAmounts open = Of({"5.00", "6,00", "1,234"});
    EXPECT_TRUE(open.Open({}));
    EXPECT_EQ(open.Read("5.00", ','), Money::FromUnits(5));
    EXPECT_EQ(open.Read("1,234", ','), Money::Parse("1.234"));
}

TEST(FileAmounts, AnAnswerAgainstTheFileWins)
{
    EXPECT_FALSE(Of({"5.00"}).Read("5.00", ','));
}

}  // namespace
}  // namespace clb
