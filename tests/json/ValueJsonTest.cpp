#include <gtest/gtest.h>

#include "json/ValueJson.h"

namespace clb {
namespace {

TEST(ValueJsonTest, MoneyIsAPlainDecimalText)
{
    EXPECT_EQ(ToLine(ToJson(Money::Parse("-45.50"))), R"("-45.5")");
    EXPECT_EQ(ToLine(ToJson(Money::Parse("100"))), R"("100")");
    EXPECT_EQ(ToLine(ToJson(Money::Parse("1,234.5678"))), R"("1234.5678")");
}

TEST(ValueJsonTest, DatesCarryTheirTimeOnlyWhenItIsNotMidnight)
{
    EXPECT_EQ(ToLine(ToJson(Date::Of(2006, 3, 5).value())), R"("2006-03-05")");
    EXPECT_EQ(ToLine(ToJson(Date::Of(2006, 3, 5, 12, 30).value())), R"("2006-03-05 12:30:00")");
}

TEST(ValueJsonTest, NumbersYesNoAndNullStayWhatTheyAre)
{
    EXPECT_EQ(ToLine(ToJson(std::int32_t{-7})), "-7");
    EXPECT_EQ(ToLine(ToJson(2.5)), "2.5");
    EXPECT_EQ(ToLine(ToJson(0.1F)), "0.1");
    EXPECT_EQ(ToLine(ToJson(true)), "true");
    EXPECT_EQ(ToLine(ToJson(Null())), "null");
}

TEST(ValueJsonTest, BytesThatAreNotTextDoNotBreakALine)
{
    EXPECT_EQ(ToLine(ToJson(std::string("caf\xE9"))), "\"caf\xEF\xBF\xBD\"");
}

TEST(ValueJsonTest, AnObjectKeepsTheOrderOfItsMembers)
{
    EXPECT_EQ(ToLine({{"b", 1}, {"a", 2}}), R"({"b":1,"a":2})");
    EXPECT_EQ(ToLine({{"only", "x"}}), R"({"only":"x"})");
}

TEST(ValueJsonTest, WholeNumbersBeyond32BitsAreRead)
{
    EXPECT_EQ(FromJson(Json(2147483647)), Value(std::int32_t{2147483647}));
    EXPECT_EQ(FromJson(Json(2147483648LL)), Value(2147483648.0));
    EXPECT_EQ(FromJson(Json(-2147483649LL)), Value(-2147483649.0));
    EXPECT_EQ(FromJson(Json("text")), Value(std::string("text")));
    EXPECT_EQ(FromJson(Json(nullptr)), Value(Null()));
}

}  // namespace
}  // namespace clb
