// What the rows of OFX say.

#include <gtest/gtest.h>

#include "statements/ofx/OfxReader.h"
#include "tests/statements/ofx/OfxTexts.h"
#include "tests/support/CollectedStatement.h"

namespace clb {
namespace {

using Texts = std::vector<std::string>;

CollectedStatement ReadRows(const std::string& rows, const StatementAnswers& answers = {})
{
    const std::string text = OfxOfRows(rows);
    return Collect(*ReadOfx(text), answers);
}

StatementRow ReadRow(const std::string& row)
{
    const CollectedStatement read = ReadRows(row);
    return read.accounts.at(0).rows.at(0);
}

std::string DateOf(const std::string& stamp)
{
    const CollectedStatement read = ReadRows(OfxRow(stamp, "1"));
    return read.accounts.at(0).rows.empty() ? "" : read.accounts[0].rows[0].date.ToIso();
}

TEST(OfxRows, TheDayIsTheOneWritten)
{
    for (const char* const stamp :
         {"20240229", "20240229120000", "20240229120000.000", "20240229235959.999[-5:EST]",
          "20240229000000[+2:CEST]", "20240229[0:GMT]", "202402291200", "20240229093914:014",
          "20240229 12:00:00", "20240229000000.000[-3:BRT]", "20240229T120000", "20240229120000Z",
          "20240229000000-0300"})
        EXPECT_EQ(DateOf(stamp), "2024-02-29") << stamp;
    for (const char* const stamp : {"20240230", "2024", "00000000", "20241301", "abc", "1712012345",
                                    "202402291", "00010101", "20240229x"})
        EXPECT_EQ(DateOf(stamp), "") << stamp;
}

TEST(OfxRows, ADateWithSignsBetweenItsNumbersIsReadByTheWholeFile)
{
    EXPECT_EQ(DateOf("2024-02-29"), "2024-02-29");
    EXPECT_EQ(ReadRows(OfxRow("03/02/2024", "1") + OfxRow("25/02/2024", "2")).Rows(),
              (Texts{"2024-02-03 1 Shop", "2024-02-25 2 Shop"}));
    EXPECT_EQ(DateOf("29022024"), "2024-02-29");
}

TEST(OfxRows, ADateThatTheFileLeavesOpenIsAsked)
{
    const std::string text = OfxOfRows(OfxRow("03/02/2024", "1"));
    const auto reader = ReadOfx(text);
    StatementAnswers answers;
    answers.dateOrder = DateText::Order::MonthDayYear;

    EXPECT_EQ(Asked(*reader), Texts{"dateOrder"});
    EXPECT_EQ(reader->Open({}).at(0).proposed, "dmy");
    EXPECT_EQ(Asked(*reader, answers), Texts());
    EXPECT_EQ(Collect(*reader, answers).Rows(), Texts{"2024-03-02 1 Shop"});
}

TEST(OfxRows, TheUsersDateCountsIfNoneIsPosted)
{
    EXPECT_EQ(ReadRows("<STMTTRN><DTUSER>20240105<TRNAMT>1<NAME>a</STMTTRN>"
                       "<STMTTRN><DTPOSTED></DTPOSTED><DTUSER>20240106<TRNAMT>2<NAME>b</STMTTRN>"
                       "<STMTTRN><DTPOSTED>00000000<DTUSER>20240107<TRNAMT>3<NAME>c</STMTTRN>"
                       "<STMTTRN><DTPOSTED>20240109<DTUSER>20240108<TRNAMT>4<NAME>d</STMTTRN>")
                  .Rows(),
              (Texts{"2024-01-05 1 a", "2024-01-06 2 b", "2024-01-07 3 c", "2024-01-09 4 d"}));
}

TEST(OfxRows, ARowWithoutDateIsListed)
{
    const CollectedStatement read = ReadRows("<STMTTRN><TRNAMT>-80.00<NAME>No date</STMTTRN>\n" +
                                             OfxRow("20240231", "5", "<NAME>No such day"));

    EXPECT_EQ(read.Rows(), Texts());
    EXPECT_EQ(read.Omissions(),
              (Texts{"line 11: it has no date that can be read (-80.00 No date)",
                     "line 12: it has no date that can be read (20240231 5 No such day)"}));
}

TEST(OfxRows, AmountsWithCommaPointSignAndThousands)
{
    const std::pair<const char*, std::int64_t> amounts[] = {
        {"-12.50", -125000},      {"-12,50", -125000},     {"+7", 70000},
        {"1,234.56", 12345600},   {"1.234,56", 12345600},  {"0.2400", 2400},
        {"115.8331", 1158331},    {" -5.00 ", -50000},     {".5", 5000},
        {"-1 234,50", -12345000}, {"1000000", 10000000000}};
    for (const auto& [text, scaled] : amounts)
        EXPECT_EQ(ReadRow(OfxRow("20240103", text)).amount, Money::FromScaled(scaled)) << text;
}

TEST(OfxRows, TheAmountsSignCountsWhateverTheType)
{
    EXPECT_EQ(ReadRow("<STMTTRN><TRNTYPE>CREDIT<DTPOSTED>20240103<TRNAMT>-5</STMTTRN>").amount,
              Money::FromUnits(-5));
}

TEST(OfxRows, OneAmountSettlesTheMarkOfAll)
{
    EXPECT_EQ(ReadRows(OfxRow("20240103", "1,234") + OfxRow("20240103", "-5,00")).Rows(),
              (Texts{"2024-01-03 1.234 Shop", "2024-01-03 -5 Shop"}));
    EXPECT_EQ(ReadRows(OfxRow("20240103", "1,234") + OfxRow("20240103", "-5.00")).Rows(),
              (Texts{"2024-01-03 1234 Shop", "2024-01-03 -5 Shop"}));
}

TEST(OfxRows, TheBalanceSettlesTheMarkIfNoAmountDoes)
{
    const std::string text = OfxFile(
        OfxStatement(OfxRow("20240103", "1.234"), "EUR", "<LEDGERBAL><BALAMT>100,50</LEDGERBAL>"));
    const auto reader = ReadOfx(text);

    EXPECT_EQ(Asked(*reader), Texts());
    EXPECT_EQ(Collect(*reader).Rows(), Texts{"2024-01-03 1234 Shop"});
}

TEST(OfxRows, AMarkThatTheFileLeavesOpenIsAsked)
{
    const std::string text = OfxOfRows(OfxRow("20240103", "1,234") + OfxRow("20240104", "7"));
    const auto reader = ReadOfx(text);
    StatementAnswers comma;
    comma.decimal = ',';

    EXPECT_EQ(Asked(*reader), Texts{"decimal"});
    EXPECT_EQ(Collect(*reader).Rows(), (Texts{"2024-01-03 1234 Shop", "2024-01-04 7 Shop"}));
    EXPECT_EQ(Asked(*reader, comma), Texts());
    EXPECT_EQ(Collect(*reader, comma).Rows(),
              (Texts{"2024-01-03 1.234 Shop", "2024-01-04 7 Shop"}));
}

TEST(OfxRows, AnAmountThatMoneyCannotHoldIsListed)
{
    const CollectedStatement read = ReadRows(
        OfxRow("20240103", "1.23456") + OfxRow("20240103", "ten") + OfxRow("20240103", "") +
        OfxRow("20240103", "99999999999999999999") + OfxRow("20240103", "1<TRNAMT>2"));

    EXPECT_EQ(read.Rows(), Texts());
    ASSERT_EQ(read.leftOut.size(), 5U);
    for (const LeftOutPart& part : read.leftOut)
        EXPECT_EQ(part.reason, LeftOutReason::NoAmount) << part.text;
}

TEST(OfxRows, TheNameIsTheBestThatTheRowHas)
{
    const std::pair<const char*, const char*> rows[] = {
        {"<NAME>Shop<MEMO>Bread", "Shop|Bread"},
        {"<PAYEE><NAME>Shop<ADDR1>Street 1<CITY>Bonn</PAYEE><MEMO>Bread", "Shop|Bread"},
        {"<PAYEE>Shop<MEMO>Bread", "Shop|Bread"},
        {"<EXTDNAME>Shop of bread", "Shop of bread|"},
        {"<MEMO>Bread", "Bread|"},
        {"<NAME></NAME><MEMO>Bread</MEMO>", "Bread|"},
        {"<NAME>Shop of<EXTDNAME>Shop of bread<MEMO>Bread", "Shop of|Bread Shop of bread"},
        {"<NAME>Shop<MEMO>Shop", "Shop|Shop"},
        {"", "DEBIT|"}};
    for (const auto& [elements, expected] : rows) {
        const StatementRow row = ReadRow(OfxRow("20240103", "1", elements));
        EXPECT_EQ(row.name + "|" + row.text, expected) << elements;
    }
}

TEST(OfxRows, HugeTextsAreReadInATimeThatGrowsWithThem)
{
    const std::string memo(1000000, 'a');
    const StatementRow row = ReadRow(
        OfxRow("20240103", "1", "<NAME>x<MEMO>" + memo + "<EXTDNAME>" + memo.substr(500000) + "b"));

    EXPECT_EQ(row.text.size(), memo.size() + 500002);
}

TEST(OfxRows, TextsAreDecoded)
{
    const std::pair<const char*, const char*> texts[] = {
        {"AT&amp;T", "AT&T"},
        {"A & B &c; &", "A & B &c; &"},
        {"&lt;x&gt; &quot;y&quot; &apos;z&apos;", "<x> \"y\" 'z'"},
        {"caf&#233; &#xE9;&#XE9; &eacute;", "caf\xC3\xA9 \xC3\xA9\xC3\xA9 \xC3\xA9"},
        {"5&nbsp;&nbsp;kg", "5 kg"},
        {"&#8364; &euro; &#128; &#x1F600;",
         "\xE2\x82\xAC \xE2\x82\xAC \xE2\x82\xAC \xF0\x9F\x98\x80"},
        {"&amp;lt;PAY&amp;gt; &amp;amp;", "<PAY> &"},
        {"&#0; &#1114112; &#xD800; &#;", "&#0; &#1114112; &#xD800; &#;"},
        {"a\t b\r\n  c", "a b c"},
        {"<![CDATA[x &amp; <NAME>y]]>", "x &amp; <NAME>y"},
        {"x<!-- no -->y", "xy"}};
    for (const auto& [raw, expected] : texts)
        EXPECT_EQ(ReadRow(OfxRow("20240103", "1", std::string("<NAME>") + raw)).name, expected)
            << raw;
}

TEST(OfxRows, ChequesReferencesAndTheDayOfTheMoney)
{
    const StatementRow row = ReadRow(
        "<STMTTRN><TRNTYPE>CHECK<DTPOSTED>20240103<DTAVAIL>20240105<TRNAMT>-5<FITID>F1"
        "<CHECKNUM>319<REFNUM>R-7<NAME>Shop<MEMO>Bread</STMTTRN>");

    EXPECT_EQ(row.checkNumber, "319");
    EXPECT_EQ(row.identifier, "F1");
    EXPECT_EQ(row.text, "Bread R-7");
    EXPECT_EQ(row.valueDate, Date::Of(2024, 1, 5));
}

TEST(OfxRows, NumbersThatSayNothingAreLeftAway)
{
    const StatementRow row =
        ReadRow(OfxRow("20240103", "1", "<FITID>77<CHECKNUM>77<REFNUM>77<NAME>Shop"));
    EXPECT_EQ(row.checkNumber, "");
    EXPECT_EQ(row.text, "");

    const StatementRow zeros =
        ReadRow(OfxRow("20240103", "1", "<FITID>000000<CHECKNUM>0000<REFNUM>0<NAME>Shop"));
    EXPECT_EQ(zeros.checkNumber, "");
    EXPECT_EQ(zeros.identifier, "");
    EXPECT_EQ(zeros.text, "");
}

TEST(OfxRows, AnIdentifierOfDifferentRowsIdentifiesNone)
{
    const CollectedStatement read = ReadRows(
        OfxRow("20240103", "-1", "<FITID>A<NAME>x") + OfxRow("20240103", "-2", "<FITID>A<NAME>x") +
        OfxRow("20240103", "-2", "<FITID>A<NAME>x") + OfxRow("20240103", "-3", "<FITID>B<NAME>x"));

    ASSERT_EQ(read.accounts.at(0).rows.size(), 4U);
    EXPECT_EQ(read.accounts[0].rows[0].identifier, "");
    EXPECT_EQ(read.accounts[0].rows[1].identifier, "");
    EXPECT_EQ(read.accounts[0].rows[2].identifier, "");
    EXPECT_EQ(read.accounts[0].rows[3].identifier, "B");
    EXPECT_EQ(read.Omissions(), Texts());
}

TEST(OfxRows, TheSameRowWithTheSameIdentifierCountsOnce)
{
    const std::string row = OfxRow("20240103", "-1", "<FITID>A<NAME>x");
    const std::string text = OfxFile(OfxStatement(row) + OfxStatement(row + row));

    const CollectedStatement read = Collect(*ReadOfx(text));

    ASSERT_EQ(read.accounts.size(), 1U);
    ASSERT_EQ(read.accounts[0].rows.size(), 1U);
    EXPECT_EQ(read.accounts[0].rows[0].identifier, "A");
    EXPECT_EQ(read.Omissions(), (Texts{"line 11: the file has it twice (20240103 -1 x)",
                                       "line 11: the file has it twice (20240103 -1 x)"}));
}

TEST(OfxRows, TwinsWithoutIdentifierStay)
{
    const std::string row = OfxRow("20240103", "-1");
    EXPECT_EQ(ReadRows(row + row).Rows().size(), 2U);
}

TEST(OfxRows, ACorrectionReplacesOrDeletesTheRowBefore)
{
    const CollectedStatement read = ReadRows(
        OfxRow("20240103", "-1", "<FITID>A<NAME>wrong") +
        OfxRow("20240103", "-2", "<FITID>B<CORRECTFITID>A<CORRECTACTION>REPLACE<NAME>right") +
        OfxRow("20240104", "-3", "<FITID>C<NAME>gone") +
        OfxRow("20240104", "-3", "<FITID>D<CORRECTFITID>C<CORRECTACTION>DELETE<NAME>gone"));

    EXPECT_EQ(read.Rows(), Texts{"2024-01-03 -2 right"});
    EXPECT_EQ(read.leftOut.size(), 3U);
}

TEST(OfxRows, PendingRowsAreListed)
{
    const std::string text = OfxFile(OfxStatement(
        OfxRow("20240103", "-1"), "EUR",
        "<BANKTRANLISTP><DTASOF>20240131<STMTTRNP><TRNTYPE>DEBIT<DTTRAN>20240130<TRNAMT>-9"
        "<NAME>Hotel</STMTTRNP></BANKTRANLISTP>"));
    EXPECT_EQ(Collect(*ReadOfx(text)).Rows(), Texts{"2024-01-03 -1 Shop"});
    EXPECT_EQ(Collect(*ReadOfx(text)).Omissions(),
              Texts{"line 11: it is not booked yet (20240130 -9 Hotel)"});

    const CollectedStatement read = ReadRows(OfxRow("20240103", "-1", "<PENDING>Y<NAME>Hotel") +
                                             OfxRow("20240103", "-2", "<PENDING>N<NAME>Shop") +
                                             "<PENDING>" + OfxRow("20240104", "-3") + "</PENDING>");
    EXPECT_EQ(read.Rows(), Texts{"2024-01-03 -2 Shop"});
    EXPECT_EQ(read.leftOut.size(), 2U);
}

}  // namespace
}  // namespace clb
