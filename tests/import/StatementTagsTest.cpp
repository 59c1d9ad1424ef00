#include <gtest/gtest.h>

#include <string>

#include "base/RuntimeError.h"
#include "import/modImport.h"

namespace clb {
namespace {

using statement_tags::FindTag;
using statement_tags::GetTagBlock;
using statement_tags::GetTagValue;

TEST(FindTagTest, MovesToTheFirstMatchAtOrAfterThePosition)
{
    std::int32_t pos = 3;

    EXPECT_TRUE(FindTag(pos, "<A>1<A>2", "<A>"));

    EXPECT_EQ(pos, 5);
}

TEST(FindTagTest, FindsTheTagAtThePosition)
{
    std::int32_t pos = 5;

    EXPECT_TRUE(FindTag(pos, "<A>1<A>2", "<A>"));

    EXPECT_EQ(pos, 5);
}

TEST(FindTagTest, StaysWhereItIsWithoutAMatch)
{
    std::int32_t pos = 2;

    EXPECT_FALSE(FindTag(pos, "<A>1", "<A>"));

    EXPECT_EQ(pos, 2);
}

TEST(FindTagTest, ComparesTheCaseOfTags)
{
    std::int32_t pos = 1;

    EXPECT_FALSE(FindTag(pos, "<acctid>1", "<ACCTID>"));
}

TEST(FindTagTest, FindsNothingPastTheEnd)
{
    std::int32_t pos = 9;

    EXPECT_FALSE(FindTag(pos, "<A>", "<A>"));

    EXPECT_EQ(pos, 9);
}

TEST(FindTagTest, CountsCharactersNotBytes)
{
    const std::string text = "Ü€<A>é<B>";
    std::int32_t pos = 2;

    EXPECT_TRUE(FindTag(pos, text, "<B>"));

    EXPECT_EQ(pos, 7);
}

TEST(FindTagTest, RefusesAPositionBeforeTheFirstCharacter)
{
    std::int32_t pos = 0;

    EXPECT_THROW(FindTag(pos, "<A>", "<A>"), RuntimeError);
}

TEST(GetTagValueTest, EndsAtTheNextTag)
{
    EXPECT_EQ(GetTagValue(1, "<NAME>Kiosk<MEMO>paper\r\n", "<NAME>"), "Kiosk");
}

TEST(GetTagValueTest, EndsAtACarriageReturnBeforeTheNextTag)
{
    EXPECT_EQ(GetTagValue(1, "<NAME>Kiosk\r\n<MEMO>paper", "<NAME>"), "Kiosk");
}

TEST(GetTagValueTest, EndsAtACarriageReturnIfNoTagFollows)
{
    EXPECT_EQ(GetTagValue(1, "<NAME>Kiosk\r\nrest", "<NAME>"), "Kiosk");
}

TEST(GetTagValueTest, EndsAtTheEndOfTheTextIfNothingEndsItBefore)
{
    EXPECT_EQ(GetTagValue(1, "<NAME>Kiosk", "<NAME>"), "Kiosk");
}

TEST(GetTagValueTest, DoesNotEndAtALineFeed)
{
    EXPECT_EQ(GetTagValue(1, "<NAME>Kiosk\nat the corner<MEMO>", "<NAME>"), "Kiosk\nat the corner");
}

TEST(GetTagValueTest, HasNoOuterSpacesButKeepsTabs)
{
    EXPECT_EQ(GetTagValue(1, "<NAME>  \tKiosk 2   <MEMO>", "<NAME>"), "\tKiosk 2");
}

TEST(GetTagValueTest, IsEmptyForAnAbsentTag)
{
    EXPECT_EQ(GetTagValue(1, "<NAME>Kiosk", "<MEMO>"), "");
}

TEST(GetTagValueTest, SearchesOnlyAtOrAfterThePosition)
{
    EXPECT_EQ(GetTagValue(2, "<A>1<A>2", "<A>"), "2");
    EXPECT_EQ(GetTagValue(6, "<A>1<A>2", "<A>"), "");
    EXPECT_EQ(GetTagValue(900, "<A>1<A>2", "<A>"), "");
}

TEST(GetTagValueTest, CountsCharactersNotBytes)
{
    EXPECT_EQ(GetTagValue(3, "é<A>1<A>2", "<A>"), "2");
    EXPECT_EQ(GetTagValue(2, "é<A>1<A>2", "<A>"), "1");
}

TEST(GetTagBlockTest, ReturnsTheTextBetweenAndMovesPastTheClosingTag)
{
    const std::string text = "..<T>one</T><T>two</T>";
    std::int32_t pos = 1;

    EXPECT_EQ(GetTagBlock(pos, text, "T"), "one");
    EXPECT_EQ(pos, 13);
    EXPECT_EQ(GetTagBlock(pos, text, "T"), "two");
    EXPECT_EQ(pos, 23);
    EXPECT_EQ(GetTagBlock(pos, text, "T"), "");
    EXPECT_EQ(pos, 23);
}

TEST(GetTagBlockTest, StaysWhereItIsWithoutAClosingTag)
{
    std::int32_t pos = 1;

    EXPECT_EQ(GetTagBlock(pos, "<T>one", "T"), "");

    EXPECT_EQ(pos, 1);
}

TEST(GetTagBlockTest, DoesNotTakeAClosingTagBeforeTheOpeningOne)
{
    std::int32_t pos = 1;

    EXPECT_EQ(GetTagBlock(pos, "</T><T>one", "T"), "");

    EXPECT_EQ(pos, 1);
}

TEST(GetTagBlockTest, PassesAnEmptyBlock)
{
    std::int32_t pos = 1;

    EXPECT_EQ(GetTagBlock(pos, "<T></T><T>two</T>", "T"), "");

    EXPECT_EQ(pos, 8);
}

TEST(GetTagBlockTest, CountsCharactersNotBytes)
{
    std::int32_t pos = 2;

    EXPECT_EQ(GetTagBlock(pos, "é<T>Müller</T>", "T"), "Müller");

    EXPECT_EQ(pos, 15);
}

}  // namespace
}  // namespace clb
