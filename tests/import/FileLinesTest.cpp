#include <gtest/gtest.h>

#include "import/FileLines.h"

namespace clb {
namespace {

using namespace std::string_view_literals;

TEST(FileLinesTest, ALineEndsAtACarriageReturnWithOrWithoutLineFeed)
{
    FileLines lines("one\r\ntwo\rthree");

    EXPECT_EQ(lines.ReadLine(), "one");
    EXPECT_EQ(lines.ReadLine(), "two");
    EXPECT_FALSE(lines.AtEnd());
    EXPECT_EQ(lines.ReadLine(), "three");
    EXPECT_TRUE(lines.AtEnd());
}

TEST(FileLinesTest, ABareLineFeedIsPartOfTheLine)
{
    FileLines lines("one\ntwo\r\n\n");

    EXPECT_EQ(lines.ReadLine(), "one\ntwo");
    EXPECT_EQ(lines.ReadLine(), "\n");
    EXPECT_TRUE(lines.AtEnd());
}

TEST(FileLinesTest, TwoCarriageReturnsAndALineFeedAreTwoLineEnds)
{
    FileLines lines("one\r\r\ntwo");

    EXPECT_EQ(lines.ReadLine(), "one");
    EXPECT_EQ(lines.ReadLine(), "");
    EXPECT_EQ(lines.ReadLine(), "two");
}

TEST(FileLinesTest, NoLineFollowsTheLastLineEnd)
{
    FileLines lines("one\r\n");

    lines.ReadLine();

    EXPECT_TRUE(lines.AtEnd());
    EXPECT_EQ(lines.ReadLine(), "");
}

TEST(FileLinesTest, AnEmptyTextIsAtItsEnd)
{
    EXPECT_TRUE(FileLines("").AtEnd());
}

TEST(FileLinesTest, ZeroBytesAreOrdinaryCharacters)
{
    FileLines lines("a\0b\r\nc"sv);

    EXPECT_EQ(lines.ReadLine(), "a\0b"sv);
    EXPECT_EQ(lines.ReadLine(), "c");
}

TEST(FileLinesTest, AnItemWithoutACommaEndsAtTheLineEnd)
{
    FileLines lines("DATA:OFXSGML\r\nVERSION:102");

    EXPECT_EQ(lines.ReadItem(), "DATA:OFXSGML");
    EXPECT_EQ(lines.ReadLine(), "VERSION:102");
}

TEST(FileLinesTest, AnItemEndsAtTheCommaAndTheRestOfItsLineFollows)
{
    FileLines lines("  one ,two\r\nthree");

    EXPECT_EQ(lines.ReadItem(), "one");
    EXPECT_EQ(lines.ReadLine(), "two");
    EXPECT_EQ(lines.ReadLine(), "three");
}

TEST(FileLinesTest, AnItemOfAnEmptyLineIsThatLine)
{
    FileLines lines("\r\nnext");

    EXPECT_EQ(lines.ReadItem(), "");
    EXPECT_EQ(lines.ReadLine(), "next");
}

TEST(FileLinesTest, AQuotedItemMayContainCommasAndLineEnds)
{
    FileLines lines("\"one,\r\ntwo\" ,three\r\nfour");

    EXPECT_EQ(lines.ReadItem(), "one,\r\ntwo");
    EXPECT_EQ(lines.ReadItem(), "three");
    EXPECT_EQ(lines.ReadItem(), "four");
    EXPECT_TRUE(lines.AtEnd());
}

TEST(FileLinesTest, AnUnclosedQuoteEndsAtTheEndOfTheText)
{
    FileLines lines("\"one\r\ntwo");

    EXPECT_EQ(lines.ReadItem(), "one\r\ntwo");
    EXPECT_TRUE(lines.AtEnd());
}

}  // namespace
}  // namespace clb
