#include <gtest/gtest.h>

#include "statements/form/AmountText.h"

namespace clb {
namespace {

std::string Point(std::string_view text)
{
    const auto amount = ReadAmount(text, '.');
    return amount ? amount->ToText() : "none";
}

std::string Comma(std::string_view text)
{
    const auto amount = ReadAmount(text, ',');
    return amount ? amount->ToText() : "none";
}

TEST(AmountTextTest, ReadsPlainNumbers)
{
    EXPECT_EQ(Point("5"), "5");
    EXPECT_EQ(Point("5.25"), "5.25");
    EXPECT_EQ(Comma("5,25"), "5.25");
    EXPECT_EQ(Point(".5"), "0.5");
    EXPECT_EQ(Comma("-,01"), "-0.01");
    EXPECT_EQ(Point("5."), "5");
    EXPECT_EQ(Point("0.00"), "0");
    EXPECT_EQ(Point("000123.40"), "123.4");
    EXPECT_EQ(Point("4.750"), "4.75");
}

TEST(AmountTextTest, ReadsGroupsOfThousandsWithEveryMark)
{
    EXPECT_EQ(Point("1,234,567.89"), "1234567.89");
    EXPECT_EQ(Comma("1.234.567,89"), "1234567.89");
    EXPECT_EQ(Comma("1 234,50"), "1234.5");
    EXPECT_EQ(Comma("1\u00A0234,50"), "1234.5");
    EXPECT_EQ(Comma("1\u202F234\u202F567,50"), "1234567.5");
    EXPECT_EQ(Comma("1\u2009234,50"), "1234.5");
    EXPECT_EQ(Point("1'234.50"), "1234.5");
    EXPECT_EQ(Point("1\u2019234.50"), "1234.5");
    EXPECT_EQ(Point("1,23,456.00"), "123456");
    EXPECT_EQ(Point("12,34,56,789.00"), "123456789");
}

TEST(AmountTextTest, RefusesGroupsThatAreNone)
{
    EXPECT_EQ(Point("1,23"), "none");
    EXPECT_EQ(Comma("5.25"), "none");
    EXPECT_EQ(Point("1234,567"), "none");
    EXPECT_EQ(Point("1,234'567"), "none");
    EXPECT_EQ(Point("1,234,56"), "none");
    EXPECT_EQ(Point("12 34"), "none");
    EXPECT_EQ(Point("1.234.567"), "none");
    // A number does not begin with a group of zero.
    EXPECT_EQ(Comma("0.500"), "none");
    EXPECT_EQ(Point("0,123"), "none");
}

TEST(AmountTextTest, ReadsSignsOnEitherSide)
{
    EXPECT_EQ(Point("-5.00"), "-5");
    EXPECT_EQ(Point("+5.00"), "5");
    EXPECT_EQ(Comma("5,00-"), "-5");
    EXPECT_EQ(Comma("5,00 -"), "-5");
    EXPECT_EQ(Comma("5,00+"), "5");
    EXPECT_EQ(Point("\u22125.00"), "-5");
    EXPECT_EQ(Point("\u20135.00"), "-5");
    EXPECT_EQ(Point("- $220.00"), "-220");
    EXPECT_EQ(Point("+ $1,150.00"), "1150");
    EXPECT_EQ(Point("(5.00)"), "-5");
    EXPECT_EQ(Point("($1,936.76)"), "-1936.76");
    EXPECT_EQ(Point("$(5.00)"), "-5");
}

TEST(AmountTextTest, RefusesSignsThatContradict)
{
    EXPECT_EQ(Point("--5"), "none");
    EXPECT_EQ(Point("-5-"), "none");
    EXPECT_EQ(Point("-(5)"), "none");
    EXPECT_EQ(Point("(5"), "none");
    EXPECT_EQ(Point("5)"), "none");
    EXPECT_EQ(Point("-5.00 CR"), "none");
    EXPECT_EQ(Point("+5.00 DR"), "none");
}

TEST(AmountTextTest, ReadsTheSideOfTheAccount)
{
    EXPECT_EQ(Point("5.00 CR"), "5");
    EXPECT_EQ(Point("5.00 DR"), "-5");
    EXPECT_EQ(Point("5.00Dr."), "-5");
    EXPECT_EQ(Point("5.00DR"), "-5");
    EXPECT_EQ(Comma("1.234,56 S"), "-1234.56");
    EXPECT_EQ(Comma("1.234,56 H"), "1234.56");
    EXPECT_EQ(Comma("10,00 D"), "-10");
    EXPECT_EQ(Comma("10,00C"), "10");
    EXPECT_EQ(Point("-5.00 DR"), "-5");
    EXPECT_EQ(ReadWrittenAmount("5.00 CR", '.')->mark, AmountMark::Credit);
    EXPECT_EQ(ReadWrittenAmount("5.00 DR", '.')->mark, AmountMark::Debit);
    EXPECT_EQ(ReadWrittenAmount("+5.00", '.')->mark, AmountMark::Plus);
    EXPECT_EQ(ReadWrittenAmount("(5.00)", '.')->mark, AmountMark::Minus);
    EXPECT_EQ(ReadWrittenAmount("5.00", '.')->mark, AmountMark::None);
}

TEST(AmountTextTest, ReadsCurrenciesOnEitherSide)
{
    EXPECT_EQ(Comma("EUR 5,00"), "5");
    EXPECT_EQ(Comma("5,00 EUR"), "5");
    EXPECT_EQ(Comma("5,00€"), "5");
    EXPECT_EQ(Comma("5,00 kr"), "5");
    EXPECT_EQ(Comma("kr. 5,00"), "5");
    EXPECT_EQ(Comma("kr.1.234,50"), "1234.5");
    EXPECT_EQ(Point("Rs.500.00"), "500");
    EXPECT_EQ(Point("$.50"), "0.5");
    EXPECT_EQ(Comma("-R$ 5,00"), "-5");
    EXPECT_EQ(Comma("R$ -5,00"), "-5");
    EXPECT_EQ(Comma("1 234,50 Kč"), "1234.5");
    EXPECT_EQ(Comma("12,00 zł"), "12");
    EXPECT_EQ(Comma("-300,00 руб."), "-300");
    EXPECT_EQ(Point("US$5.00"), "5");
    EXPECT_EQ(Point("CHF 1'234.50"), "1234.5");
    EXPECT_EQ(Point("28.50元"), "28.5");
    EXPECT_EQ(Point("¥28.50"), "28.5");
    EXPECT_EQ(Point("د.ا.\u200F4.750"), "4.75");
    EXPECT_EQ(Comma("-5,00 EUR"), "-5");
    EXPECT_EQ(Comma("5,00 EUR-"), "-5");
    EXPECT_EQ(ReadWrittenAmount("5.00 USD", '.')->currency, "USD");
    EXPECT_EQ(ReadWrittenAmount("€5.00", '.')->currency, "€");
}

TEST(AmountTextTest, ReadsAmountsWithoutDecimals)
{
    EXPECT_EQ(Comma("5,-"), "5");
    EXPECT_EQ(Comma("1.250,--"), "1250");
    EXPECT_EQ(Comma("5,\u2013"), "5");
    EXPECT_EQ(Point("5.-"), "5");
    EXPECT_EQ(Point("CHF 1'250.-"), "1250");
    EXPECT_EQ(Comma("-5,-"), "-5");
    EXPECT_EQ(Comma("5-"), "-5");
}

TEST(AmountTextTest, RefusesWhatMoneyCannotHold)
{
    EXPECT_EQ(Point("1.12345"), "none");
    EXPECT_EQ(Point("1.1234000000"), "1.1234");
    EXPECT_EQ(Point("922337203685477.5807"), "922337203685477.5807");
    EXPECT_EQ(Point("-922337203685477.5807"), "-922337203685477.5807");
    EXPECT_EQ(Point("922337203685477.5808"), "none");
    EXPECT_EQ(Point("99999999999999999999999999999999999999"), "none");
    EXPECT_EQ(Point("18446744073709551616"), "none");
}

TEST(AmountTextTest, RefusesOtherTexts)
{
    for (const char* text :
         {"",           " ",          "-",     "+",        "()",         ".",
          ",",          "EUR",        "abc",   "REF 123",  "12/10",      "5 %",
          "5%",         "1e5",        "12:30", "5 apples", "5.00 CR DR", "5 EUR USD GBP",
          "xx,yyyy.zz", "2021-03-03", "\xFF",  "5\xFF",    "\0005"}) {
        EXPECT_EQ(Point(text), "none") << text;
        EXPECT_EQ(Comma(text), "none") << text;
    }
    EXPECT_EQ(Point(std::string(100'000, ' ') + "x"), "none");
    EXPECT_EQ(Point(std::string(100'000, '1')), "none");
}

std::string Marks(const std::vector<const char*>& amounts)
{
    DecimalMarks marks;
    for (const char* amount : amounts)
        marks.Add(amount);
    std::string possible = marks.Same() ? "same " : "";
    for (const char mark : marks.Possible())
        possible += mark;
    return possible;
}

TEST(DecimalMarksTest, OneAmountCanSettleTheMark)
{
    EXPECT_EQ(Marks({"1.234", "5,00"}), ",");
    EXPECT_EQ(Marks({"1,234", "5.00"}), ".");
    EXPECT_EQ(Marks({"1.234", "0.500"}), ".");
}

TEST(DecimalMarksTest, AmountsOfThreeDecimalsLeaveItOpen)
{
    EXPECT_EQ(Marks({"1.234", "500"}), ".,");
}

TEST(DecimalMarksTest, KnowsTheMarkThatIsOpen)
{
    DecimalMarks marks;
    marks.Add("kr.1,234");
    EXPECT_EQ(marks.Mark(), ',');
    marks.Add("500");
    EXPECT_EQ(marks.Mark(), ',');
    marks.Add("1.234");
    EXPECT_EQ(marks.Mark(), '\0');
}

TEST(DecimalMarksTest, WholeAmountsMeanTheSame)
{
    EXPECT_EQ(Marks({"5", "100", "text", ""}), "same .,");
    EXPECT_EQ(Marks({}), "same .,");
}

TEST(DecimalMarksTest, AmountsThatContradictLeaveNone)
{
    EXPECT_EQ(Marks({"1.50", "1,50"}), "");
}

}  // namespace
}  // namespace clb
