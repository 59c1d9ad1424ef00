// The set that finds a text which came before.

#include <gtest/gtest.h>

#include <string>

#include "export/TextSet.h"

namespace clb {
namespace {

TEST(TextSetTest, ATextIsNewOnce)
{
    TextSet texts;

    EXPECT_TRUE(texts.Insert("A1"));
    EXPECT_TRUE(texts.Insert("a1"));
    EXPECT_FALSE(texts.Insert("A1"));
    EXPECT_FALSE(texts.Insert("a1"));
}

TEST(TextSetTest, TheEmptyTextAndTextsWithZerosAreTexts)
{
    using namespace std::string_view_literals;
    TextSet texts;

    EXPECT_TRUE(texts.Insert(""));
    EXPECT_TRUE(texts.Insert("\0"sv));
    EXPECT_TRUE(texts.Insert("\0\0"sv));
    EXPECT_FALSE(texts.Insert(""));
    EXPECT_FALSE(texts.Insert("\0"sv));
}

// "1" + "23" and "12" + "3" lie in the same bytes.
TEST(TextSetTest, EachTextEndsWhereItEnded)
{
    TextSet texts;

    EXPECT_TRUE(texts.Insert("1"));
    EXPECT_TRUE(texts.Insert("23"));
    EXPECT_TRUE(texts.Insert("12"));
    EXPECT_TRUE(texts.Insert("3"));
    EXPECT_TRUE(texts.Insert("123"));
}

TEST(TextSetTest, AHundredThousandTextsAreAllFoundAgain)
{
    constexpr int kCount = 100'000;
    TextSet texts;
    for (int number = 0; number < kCount; ++number)
        ASSERT_TRUE(texts.Insert("FIT" + std::to_string(number))) << number;

    for (int number = 0; number < kCount; ++number)
        ASSERT_FALSE(texts.Insert("FIT" + std::to_string(number))) << number;
    EXPECT_TRUE(texts.Insert("FIT" + std::to_string(kCount)));
}

}  // namespace
}  // namespace clb
