#include <gtest/gtest.h>

#include <limits>

#include "base/Date.h"
#include "base/Money.h"
#include "search/SearchQuery.h"

namespace clb {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

std::string End(std::int64_t scaled)
{
    return scaled == kMost || scaled == kLeast ? "" : Money::FromScaled(scaled).ToText();
}

std::string DayText(std::int32_t day)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return day == Limits::min() || day == Limits::max() ? "" : Date::FromDays(day).ToIso();
}

const char* NameOf(SearchField field)
{
    switch (field) {
        case SearchField::Any: return "";
        case SearchField::Description: return "payee:";
        case SearchField::Notes: return "notes:";
        case SearchField::CheckNumber: return "check:";
        case SearchField::Category: return "category:";
        default: return "account:";
    }
}

/// The readings of each term: {'text'|[least..most]|<first..last>}, with "-" before for without.
std::string Read(std::string_view text)
{
    std::string all;
    const SearchQuery query(text);
    for (const SearchTerm& term : query.Terms()) {
        std::string readings;
        if (!term.word.empty())
            readings += std::string("|") + NameOf(term.field) + "'" + term.word + "'";
        for (const auto& [least, most] : term.amounts)
            readings += "|[" + (least == most ? End(least) : End(least) + ".." + End(most)) + "]";
        if (term.days)
            readings += "|<" + DayText(term.days->first) + ".." + DayText(term.days->last) + ">";
        all += (all.empty() ? "" : " ") + std::string(term.without ? "-" : "") +
               (readings.empty() ? "never" : readings.substr(1));
    }
    return all;
}

TEST(SearchQueryTest, WordsAreFoldedAndSpacesOfAllKindsDivideThem)
{
    EXPECT_EQ(Read("Café  STRASSE"), "'cafe' 'strasse'");
    EXPECT_EQ(Read(" \ta\u3000b\nc\u00A0d "), "'a' 'b' 'c' 'd'");
    EXPECT_EQ(Read(""), "");
    EXPECT_EQ(Read("   "), "");
    EXPECT_TRUE(SearchQuery(" - account: ").Empty());
}

TEST(SearchQueryTest, QuotedTextsKeepSpacesAndAreAlwaysTexts)
{
    EXPECT_EQ(Read("\"Two  words\" x"), "'two  words' 'x'");
    EXPECT_EQ(Read("\"49.90\" \"2026\" \"-a\" \"payee:b\""), "'49.90' '2026' '-a' 'payee:b'");
    EXPECT_EQ(Read("\"no end x"), "'no end x'");
    EXPECT_EQ(Read("\"\" \""), "");
    EXPECT_EQ(Read("\"a\"b"), "'a' 'b'");
    EXPECT_EQ(Read("12\" a\"b c\""), "'12\"' 'a\"b' 'c\"'");
}

TEST(SearchQueryTest, APrefixRestrictsAWordToAField)
{
    EXPECT_EQ(Read("account:Visa category:FOOD payee:x notes:y"),
              "account:'visa' category:'food' payee:'x' notes:'y'");
    EXPECT_EQ(Read("Category:\"Eating Out\" z"), "category:'eating out' 'z'");
    EXPECT_EQ(Read("payee:49.90 notes:-a payee:2026"), "payee:'49.90' notes:'-a' payee:'2026'");
    EXPECT_EQ(Read("account: notes:\"\" other:x payee"), "'other:x' 'payee'");
}

TEST(SearchQueryTest, AMinusBeforeATermMeansWithout)
{
    EXPECT_EQ(Read("-food -\"two words\" -category:food -payee:\"a b\""),
              "-'food' -'two words' -category:'food' -payee:'a b'");
    EXPECT_EQ(Read("-2026-03 ->100 -1.2.3"),
              "-<2026-03-01..2026-03-31> -[100.0001..]|[..-100.0001] -'1.2.3'");
    EXPECT_EQ(Read("-2020..2024"), "-<2020-01-01..2024-12-31>");
    EXPECT_EQ(Read("- -- --- -\"\" -account:"), "");
    EXPECT_EQ(Read("--a a-b"), "-'-a' 'a-b'");
}

TEST(SearchQueryTest, AnAmountIsOfEitherSign)
{
    for (const char* const text : {"49.90", "49,90", "€49.90", "$49.9", "49.90€", "49,9000"})
        EXPECT_EQ(Read(text), "[49.9]|[-49.9]") << text;
    for (const char* const text : {"1,234.50", "1.234,50", "1'234.50", "1’234,50", "1\u00A0234,50",
                                   "1\u202F234.50", "1234.5", "€1234,5"})
        EXPECT_EQ(Read(text), "[1234.5]|[-1234.5]") << text;
    EXPECT_EQ(Read("0.00"), "[0]");
    EXPECT_EQ(Read("12,34,567.5"), "[1234567.5]|[-1234567.5]");
    EXPECT_EQ(Read("5,-"), "[5]|[-5]");
}

TEST(SearchQueryTest, WhereBothDecimalMarksFitEitherAmountIsMeant)
{
    EXPECT_EQ(Read("1,234"), "[1234]|[-1234]|[1.234]|[-1.234]");
    EXPECT_EQ(Read("1.234"), "[1.234]|[-1.234]|[1234]|[-1234]");
    EXPECT_EQ(Read("-1,234"), "[-1234]|[-1.234]");
}

TEST(SearchQueryTest, ASignMeansExactlyThatAmount)
{
    for (const char* const text :
         {"-49.90", "49.90-", "−49.90", "–49,90", "(49.90)", "-€49.90", "€-49.90", "($49.90)"})
        EXPECT_EQ(Read(text), "[-49.9]") << text;
    EXPECT_EQ(Read("+49.90"), "[49.9]");
    EXPECT_EQ(Read("-1500 -2026"), "[-1500] [-2026]");
}

TEST(SearchQueryTest, AWholeNumberIsATextOrAnAmountAndPerhapsAYear)
{
    EXPECT_EQ(Read("1500"), "'1500'|[1500]|[-1500]");
    EXPECT_EQ(Read("007"), "'007'|[7]|[-7]");
    EXPECT_EQ(Read("2026"), "'2026'|[2026]|[-2026]|<2026-01-01..2026-12-31>");
    EXPECT_EQ(Read("1899"), "'1899'|[1899]|[-1899]");
    EXPECT_EQ(Read("2100"), "'2100'|[2100]|[-2100]");
    EXPECT_EQ(Read("99999999999999999999"), "'99999999999999999999'");
}

TEST(SearchQueryTest, WhatIsNotAnAmountIsAText)
{
    for (const char* const text : {"49.90cr", "dr49.90", "eur49.90", "us$49", "1.23456", "1..2..3",
                                   "1.2.3", "50%", "#12", "1e5", "12/03/2026", "12...15",
                                   "99999999999999999999.5", "1,23,45", "a..b", ">a", "12..x"})
        EXPECT_EQ(Read(text), "'" + std::string(text) + "'") << text;
}

TEST(SearchQueryTest, SizesGoByTheAmountWithoutItsSign)
{
    EXPECT_EQ(Read(">100"), "[100.0001..]|[..-100.0001]");
    EXPECT_EQ(Read(">=100"), "[100..]|[..-100]");
    EXPECT_EQ(Read("<20"), "[-19.9999..19.9999]");
    EXPECT_EQ(Read("<=20,50"), "[-20.5..20.5]");
    EXPECT_EQ(Read("12..15"), "[12..15]|[-15..-12]");
    EXPECT_EQ(Read("15..12,50"), "[12.5..15]|[-15..-12.5]");
    EXPECT_EQ(Read("€12.."), "[12..]|[..-12]");
    EXPECT_EQ(Read("..15"), "[-15..15]");
    EXPECT_EQ(Read("<0"), "never");
    EXPECT_EQ(Read("> 100 x"), "[100.0001..]|[..-100.0001] 'x'");
    EXPECT_EQ(Read("> x"), "'x'");
}

TEST(SearchQueryTest, TheEndsOfARangeHaveTheSameDecimalMark)
{
    EXPECT_EQ(Read("1,234..2,000.50"), "[1234..2000.5]|[-2000.5..-1234]");
    EXPECT_EQ(Read("1,234..2,000"), "[1234..2000]|[-2000..-1234]|[1.234..2]|[-2..-1.234]");
}

TEST(SearchQueryTest, ComparisonsWithASignCompareSignedAmounts)
{
    EXPECT_EQ(Read("<-100"), "[..-100.0001]");
    EXPECT_EQ(Read(">=+5"), "[5..]");
    EXPECT_EQ(Read("-20..-10"), "[-20..-10]");
    EXPECT_EQ(Read("-20..10"), "[-20..10]");
    EXPECT_EQ(Read("-20.."), "[-20..]");
}

TEST(SearchQueryTest, TheLargestAmountsDoNotOverflow)
{
    EXPECT_EQ(Read(">922337203685477.5807"), "[]");
    EXPECT_EQ(Read(">+922337203685477.5807"), "never");
    EXPECT_EQ(Read(">=922337203685477.5807"), "[]|[..-922337203685477.5807]");
}

TEST(SearchQueryTest, DatesAreYearsMonthsAndDays)
{
    EXPECT_EQ(Read("2026-03"), "<2026-03-01..2026-03-31>");
    EXPECT_EQ(Read("2024-02"), "<2024-02-01..2024-02-29>");
    EXPECT_EQ(Read("2026-12"), "<2026-12-01..2026-12-31>");
    EXPECT_EQ(Read("2026-03-15"), "<2026-03-15..2026-03-15>");
    EXPECT_EQ(Read("2099-12-31"), "<2099-12-31..2099-12-31>");
    for (const char* const text : {"2026-13", "2026-00", "2026-3", "2026-02-30", "1899-12",
                                   "2100-01", "2026-03-15x", "2026-03-1", "2026-03-"})
        EXPECT_EQ(Read(text), "'" + std::string(text) + "'") << text;
}

TEST(SearchQueryTest, RangesOfDatesIncludeBothEnds)
{
    EXPECT_EQ(Read("2026-01..2026-03"), "<2026-01-01..2026-03-31>");
    EXPECT_EQ(Read("2026-03-15..2026-04"), "<2026-03-15..2026-04-30>");
    EXPECT_EQ(Read("2026-04..2026-03-15"), "<2026-03-15..2026-04-30>");
    EXPECT_EQ(Read("2020..2024"), "<2020-01-01..2024-12-31>");
    EXPECT_EQ(Read("2024..2026-03"), "<2024-01-01..2026-03-31>");
    EXPECT_EQ(Read("2026-03.."), "<2026-03-01..>");
    EXPECT_EQ(Read("..2024"), "<..2024-12-31>");
    EXPECT_EQ(Read("1500..2024"), "[1500..2024]|[-2024..-1500]");
    EXPECT_EQ(Read("2026-03..100"), "'2026-03..100'");
}

TEST(SearchQueryTest, WhatIsOnlyBegunIsNoCondition)
{
    for (const char* const text : {"-", "--", "+", "<", "<=", ">", ">=", "..", "-.."})
        EXPECT_EQ(Read(text), "") << text;
}

TEST(SearchQueryTest, MarksAreWhereTheWordsAre)
{
    const SearchQuery query("café cafe payee:shop -drink notes:x 12.5 1500");
    using Spans = std::vector<TextSpan>;

    EXPECT_EQ(query.MarksIn(SearchField::Description, "Café Shop drink x 1500"),
              (Spans{{0, 5}, {6, 4}, {19, 4}}));
    EXPECT_EQ(query.MarksIn(SearchField::Notes, "shop x"), (Spans{{5, 1}}));
    EXPECT_EQ(SearchQuery("abc bcd").MarksIn(SearchField::Category, "xabcdx"), (Spans{{1, 4}}));
}

}  // namespace
}  // namespace clb
