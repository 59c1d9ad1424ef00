#include <gtest/gtest.h>

#include "base/Text.h"

namespace clb {
namespace {

TEST(TextTest, LengthsAndCutsCountCharacters)
{
    EXPECT_EQ(Length("Käse€"), 5U);
    EXPECT_EQ(Left("Käse€", 2), "Kä");
    EXPECT_EQ(Left("Käse€", 9), "Käse€");
    EXPECT_EQ(ByteOffset("Käse", 2), 3U);
    EXPECT_EQ(Length("a\xFF"
                     "b"),
              3U);
}

TEST(TextTest, TrimsSpacesOnly)
{
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(TrimLeft("  a "), "a ");
    EXPECT_EQ(TrimRight(" a  "), " a");
    EXPECT_EQ(Trim("\ta\n"), "\ta\n");
    EXPECT_EQ(Trim("   "), "");
}

TEST(TextTest, SplitsAtEveryDelimiter)
{
    EXPECT_EQ(Split("a,b,,c", ','), (std::vector<std::string>{"a", "b", "", "c"}));
    EXPECT_EQ(Split("", ','), (std::vector<std::string>{""}));
}

TEST(TextTest, ReplacesAllFromTheLeft)
{
    EXPECT_EQ(Replace("'''", "'", "''"), "''''''");
    EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Replace("", "a", "b"), "");
}

TEST(TextTest, AlphabeticalOrderIgnoresCaseAndAccents)
{
    EXPECT_LT(CompareAlphabetical("apple", "Banana"), 0);
    EXPECT_EQ(CompareAlphabetical("VISA", "visa"), 0);
    EXPECT_LT(CompareAlphabetical("Éclair", "Fudge"), 0);
    EXPECT_GT(CompareAlphabetical("Éclair", "door"), 0);
    EXPECT_LT(CompareAlphabetical("a", "ab"), 0);
}

TEST(TextTest, AFileIsUtf8WhenAllOfItIs)
{
    EXPECT_EQ(DecodeFile("Caf\xC3\xA9"), "Café");
    EXPECT_EQ(DecodeFile("\xEF\xBB\xBFHi"), "Hi");
    EXPECT_EQ(DecodeFile("Caf\xE9 \x80"), "Café €");
}

TEST(TextTest, TheCodePageGoesBothWays)
{
    std::string all;
    for (int code = 0; code < 256; ++code)
        all.push_back(static_cast<char>(code));

    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
    EXPECT_EQ(ToWindows1252("Ω“x”"), "?\x93x\x94");
}

TEST(TextTest, BrokenSequencesAreNotUtf8)
{
    EXPECT_TRUE(IsValidUtf8("plain"));
    EXPECT_TRUE(IsValidUtf8("€"));
    EXPECT_FALSE(IsValidUtf8("\xC3"));
    EXPECT_FALSE(IsValidUtf8("\xC0\xAF"));
    EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));
}

}  // namespace
}  // namespace clb
