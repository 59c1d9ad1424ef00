#include "automation/CallArguments.h"
#include "automation/Request.h"

#include <gtest/gtest.h>

namespace clb {
namespace {

TEST(CallArgumentsTest, ArgumentsAreReadByTheirKinds)
{
    CallArguments arguments(Json::parse(R"(["Food", 2006, "12.50", true])"), "tlmb");

    EXPECT_EQ(arguments.Text(0), "Food");
    EXPECT_EQ(arguments.Long(1), 2006);
    EXPECT_EQ(arguments.Amount(2), Money::Parse("12.5"));
    EXPECT_TRUE(arguments.Flag(3));
}

TEST(CallArgumentsTest, WhatACallWroteIsReadBack)
{
    CallArguments arguments(Json::parse(R"([-1, ""])"), "lt");

    arguments.Long(0) = 4;
    arguments.Text(1) = "12-34";

    EXPECT_EQ(ToLine(arguments.ToJson()), R"([4,"12-34"])");
}

TEST(CallArgumentsTest, ArgumentsThatAreOnlyWrittenMayBeLeftOut)
{
    const CallArguments none(Json::array(), "|lt");
    const CallArguments amounts(Json::parse(R"(["7"])"), "|mm");

    EXPECT_EQ(ToLine(none.ToJson()), R"([0,""])");
    EXPECT_EQ(ToLine(amounts.ToJson()), R"(["7","0"])");
}

TEST(CallArgumentsTest, WrongArgumentsAreRefused)
{
    const auto read = [](const char* given, const char* kinds) {
        CallArguments(Json::parse(given), kinds);
    };

    EXPECT_THROW(read("[]", "t"), RequestError);
    EXPECT_THROW(read(R"(["a","b"])", "t"), RequestError);
    EXPECT_THROW(read("[1]", "t"), RequestError);
    EXPECT_THROW(read("[1.5]", "l"), RequestError);
    EXPECT_THROW(read("[3000000000]", "l"), RequestError);
    EXPECT_THROW(read(R"(["12,50"])", "m"), RequestError);
    EXPECT_THROW(read("[1]", "b"), RequestError);
    EXPECT_THROW(read("[[1]]", "v"), RequestError);
}

}  // namespace
}  // namespace clb
