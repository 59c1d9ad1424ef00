#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "base/Value.h"

namespace clb {
namespace {

TEST(ValueTest, TextsOfTheTypes)
{
    EXPECT_EQ(ToText(Value{}), "");
    EXPECT_EQ(ToText(Value{Money::Parse("12.50")}), "12.5");
    EXPECT_EQ(ToText(Value{*Date::Of(2006, 3, 5)}), "2006-03-05");
    EXPECT_EQ(ToText(Value{true}), "True");
    EXPECT_EQ(ToText(Value{std::int32_t{-7}}), "-7");
}

TEST(ValueTest, NullAndTheEmptyTextAreEmpty)
{
    EXPECT_TRUE(IsEmpty(Value{}));
    EXPECT_TRUE(IsEmpty(Value{std::string()}));
    EXPECT_FALSE(IsEmpty(Value{std::string(" ")}));
    EXPECT_FALSE(IsEmpty(Value{std::int32_t{0}}));
}

TEST(ValueTest, ConvertsIntoColumnTypes)
{
    EXPECT_EQ(Convert(std::string("1,234.5"), FieldType::Money), Value{Money::Parse("1234.5")});
    EXPECT_EQ(Convert(std::string("2006-03-05"), FieldType::Date), Value{*Date::Of(2006, 3, 5)});
    EXPECT_EQ(Convert(std::string("yes"), FieldType::Boolean), Value{true});
    EXPECT_EQ(Convert(2.5, FieldType::Long), Value{std::int32_t{2}});
    EXPECT_EQ(Convert(Value{}, FieldType::Long), Value{});
}

TEST(ValueTest, WhatTheTypeDoesNotHoldIsAnError)
{
    EXPECT_THROW(Convert(std::string("5 March"), FieldType::Date), RuntimeError);
    EXPECT_THROW(Convert(std::string("abc"), FieldType::Money), RuntimeError);
    EXPECT_THROW(Convert(1e39, FieldType::Single), RuntimeError);
    EXPECT_THROW(Convert(1e10, FieldType::Long), RuntimeError);
}

}  // namespace
}  // namespace clb
