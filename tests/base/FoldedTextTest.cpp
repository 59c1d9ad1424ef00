#include <gtest/gtest.h>

#include "base/FoldedText.h"
#include "base/Text.h"

namespace clb {
namespace {

using namespace std::string_literals;

TEST(FoldedTextTest, CaseGoes)
{
    EXPECT_EQ(Folded("Corner GROCERY 24 [x]@`{"), "corner grocery 24 [x]@`{");
    EXPECT_EQ(Folded("ÄÖÜ ЖЁ"), Folded("äöü жё"));
    EXPECT_EQ(Folded("ΣΊΣΥΦΟΣ"), Folded("σίσυφος"));
    EXPECT_EQ(Folded("İstanbul"), "istanbul");
    EXPECT_EQ(Folded("ısparta"), "isparta");
}

TEST(FoldedTextTest, AccentsGoHoweverTheyAreStored)
{
    EXPECT_EQ(Folded("Café Zürich Čeština"), "cafe zurich cestina");
    EXPECT_EQ(Folded("Cafe\u0301"), "cafe");
    EXPECT_EQ(Folded("nai\u0308ve \u0301"), "naive ");
}

TEST(FoldedTextTest, LettersThatDoNotDecomposeBecomePlainOnes)
{
    EXPECT_EQ(Folded("Straße STRASSE ẞ"), "strasse strasse ss");
    EXPECT_EQ(Folded("Łódź Øre Đuro Guðrún Æble Œuvre Þór Ħal ŋ ŧ"),
              "lodz ore duro gudrun aeble oeuvre thor hal n t");
}

TEST(FoldedTextTest, CompatibleFormsBecomePlainOnes)
{
    EXPECT_EQ(Folded("ﬁnance ① ＡＢＣ １２ m² ™"), "finance 1 abc 12 m2 tm");
    EXPECT_EQ(Folded("…"), "...");
}

TEST(FoldedTextTest, SpacesAndControlCharactersBecomePlainSpaces)
{
    EXPECT_EQ(Folded("a\u00A0b\u202Fc\u3000d\te\nf\x1fg\x7fh\u0085i\u2028j"),
              "a b c d e f g h i j");
    EXPECT_EQ(Folded("a\0b"s), "a b");
    EXPECT_EQ(Folded("a  b"), "a  b");
}

TEST(FoldedTextTest, InvisibleCharactersGo)
{
    EXPECT_EQ(Folded("Zwischen\u00ADsumme \u200Emark\u200B\uFEFF \u2764\uFE0F"),
              "zwischensumme mark \u2764");
}

TEST(FoldedTextTest, TypographyBecomesWhatAKeyboardHas)
{
    EXPECT_EQ(Folded("O’Brien O´Brien ʼn “a” „b‟ a–b a—b −5 a‐b"),
              "o'brien o'brien 'n \"a\" \"b\" a-b a-b -5 a-b");
}

/// Without their vowel signs most words of these scripts would be found as others.
TEST(FoldedTextTest, VowelSignsStay)
{
    EXPECT_NE(Folded("कि"), Folded("का"));
    EXPECT_NE(Folded("กิน"), Folded("กัน"));
}

TEST(FoldedTextTest, InvalidBytesStayOneByOne)
{
    EXPECT_EQ(Folded("A\xFF\xC3(B\xE2\x82"), "a\xFF\xC3(b\xE2\x82");
    EXPECT_EQ(Folded("\xED\xA0\x80\xC0\xAF"), "\xED\xA0\x80\xC0\xAF");
}

TEST(FoldedTextTest, EveryPlaceInALongTextIsFolded)
{
    for (std::size_t before = 0; before < 40; ++before)
        for (const char* const sign : {"Z", "@", "[", "\x01", "\x7f", "é", "\xFF"}) {
            const std::string text = std::string(before, 'A') + sign + "BCDEFGHIJKLMNOP";
            EXPECT_EQ(Folded(text), std::string(before, 'a') + Folded(sign) + "bcdefghijklmnop");
        }
}

/// Otherwise what was folded once could not be compared with what was folded twice.
TEST(FoldedTextTest, FoldingAgainChangesNothing)
{
    std::string all;
    for (char32_t character = 1; character < 0x20000; ++character) {
        if (character >= 0xD800 && character < 0xE000)
            continue;
        std::string text;
        if (character < 0x80)
            text = static_cast<char>(character);
        else if (character < 0x800)
            text = {static_cast<char>(0xC0 | (character >> 6)),
                    static_cast<char>(0x80 | (character & 0x3F))};
        else if (character < 0x10000)
            text = {static_cast<char>(0xE0 | (character >> 12)),
                    static_cast<char>(0x80 | ((character >> 6) & 0x3F)),
                    static_cast<char>(0x80 | (character & 0x3F))};
        else
            text = {static_cast<char>(0xF0 | (character >> 18)),
                    static_cast<char>(0x80 | ((character >> 12) & 0x3F)),
                    static_cast<char>(0x80 | ((character >> 6) & 0x3F)),
                    static_cast<char>(0x80 | (character & 0x3F))};
        const std::string folded = Folded(text);
        EXPECT_EQ(Folded(folded), folded) << text;
        EXPECT_TRUE(IsValidUtf8(folded)) << text;
    }
}

using Spans = std::vector<TextSpan>;

TEST(FindFoldedTest, SpansAreBytesOfTheOriginalText)
{
    EXPECT_EQ(FindFolded("Café Straße", "strasse"), (Spans{{6, 7}}));
    EXPECT_EQ(FindFolded("Café Café", "cafe"), (Spans{{0, 5}, {6, 5}}));
    EXPECT_EQ(FindFolded("aAaA", "aa"), (Spans{{0, 2}, {2, 2}}));
}

TEST(FindFoldedTest, AHitInsideACharacterIsTheWholeCharacter)
{
    EXPECT_EQ(FindFolded("ßo", "s"), (Spans{{0, 2}}));
    EXPECT_EQ(FindFolded("aßo", "so"), (Spans{{1, 3}}));
    EXPECT_EQ(FindFolded("x\uFDFAy", "y"), (Spans{{4, 1}}));
}

TEST(FindFoldedTest, MarksAfterALetterBelongToIt)
{
    EXPECT_EQ(FindFolded("Cafe\u0301!", "cafe"), (Spans{{0, 6}}));
    EXPECT_EQ(FindFolded("e\u0301e", "e"), (Spans{{0, 3}, {3, 1}}));
    EXPECT_EQ(FindFolded("\u0301e", "e"), (Spans{{2, 1}}));
}

TEST(FindFoldedTest, NothingIsFoundOfAnEmptyWordOrAnotherOne)
{
    EXPECT_EQ(FindFolded("abc", ""), Spans{});
    EXPECT_EQ(FindFolded("abc", "d"), Spans{});
    EXPECT_EQ(FindFolded("", "d"), Spans{});
    EXPECT_EQ(FindFolded("a\xFF"
                         "b",
                         "\xFF"),
              (Spans{{1, 1}}));
}

}  // namespace
}  // namespace clb
