// Calls by name: arguments and results follow the types of the function that is called.

#include <gtest/gtest.h>

#include "automation/Bind.h"
#include "automation/Request.h"

namespace clb {
namespace {

/// An operation with an argument of each kind.
std::string Describe(const std::string& text, std::int32_t number, Money amount, bool flag)
{
    return text + " " + std::to_string(number) + " " + amount.ToText() + (flag ? " yes" : " no");
}

void FindAccount(std::int32_t& view, std::string& account)
{
    view = 4;
    account += "12-34";
}

void AddUp(Money& first, Money& second)
{
    first += second;
}

Json Members(const Json& object, const Value& value)
{
    return {{"count", object.size()}, {"value", ToJson(value)}};
}

template <class... Parameters, class Result>
std::string Call(Result (*function)(Parameters...), const char* given, MayOmit omit = {})
{
    return ToLine(CallWith<Parameters...>(Json::parse(given), omit, function));
}

template <class... Parameters, class Result>
std::string RefusalOf(Result (*function)(Parameters...), const char* given)
{
    try {
        return Call(function, given);
    } catch (const RequestError& error) {
        return error.what();
    }
}

TEST(CallArgumentsTest, ArgumentsAreReadByTheTypesOfTheParameters)
{
    EXPECT_EQ(Call(&Describe, R"(["Food", 2006, "12.50", true])"),
              R"({"result":"Food 2006 12.5 yes","args":["Food",2006,"12.5",true]})");
    EXPECT_EQ(Call(&Members, R"([{"a":1,"b":2}, null])"),
              R"({"result":{"count":2,"value":null},"args":[{"a":1,"b":2},null]})");
}

TEST(CallArgumentsTest, AnArgumentByReferenceIsReturnedAsTheCallLeftIt)
{
    EXPECT_EQ(Call(&FindAccount, R"([-1, "No. "])"), R"({"result":null,"args":[4,"No. 12-34"]})");
}

TEST(CallArgumentsTest, ArgumentsThatMayBeOmittedAreZeroOrEmpty)
{
    EXPECT_EQ(Call(&FindAccount, "[]", MayOmit{2}), R"({"result":null,"args":[4,"12-34"]})");
    EXPECT_EQ(Call(&FindAccount, "[1]", MayOmit{1}), R"({"result":null,"args":[4,"12-34"]})");
    EXPECT_EQ(Call(&AddUp, R"(["7"])", MayOmit{2}), R"({"result":null,"args":["7","0"]})");
}

TEST(CallArgumentsTest, ArgumentsThatDoNotFitAreRefused)
{
    EXPECT_EQ(RefusalOf(&Describe, R"(["Food", 2006])"), "Missing argument 3");
    EXPECT_EQ(RefusalOf(&FindAccount, R"([1, "", 2])"), "Too many arguments: there are 2");
    EXPECT_EQ(RefusalOf(&Describe, "[1, 1, 1, true]"), "Wrong argument: argument 1 must be a text");
    EXPECT_EQ(RefusalOf(&Describe, R"(["", 1.5, 1, true])"),
              "Wrong argument: argument 2 must be a whole number");
    EXPECT_EQ(RefusalOf(&Describe, R"(["", 3000000000, 1, true])"),
              "Wrong argument: argument 2 must be a whole number");
    EXPECT_EQ(RefusalOf(&Describe, R"(["", 1, "12,50", true])"),
              "Wrong argument: argument 3 must be an amount of money");
    EXPECT_EQ(RefusalOf(&Describe, R"(["", 1, 1, 1])"),
              "Wrong argument: argument 4 must be true or false");
    EXPECT_EQ(RefusalOf(&Members, "[1, 1]"), "Wrong argument: argument 1 must be an object");
    EXPECT_EQ(RefusalOf(&Members, "[{}, [1]]"),
              "Wrong argument: argument 2 must be a text, a number, true, false or null");
}

}  // namespace
}  // namespace clb
