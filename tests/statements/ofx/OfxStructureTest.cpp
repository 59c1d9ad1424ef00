// The shapes in which banks write OFX.

#include <gtest/gtest.h>

#include "statements/ofx/OfxReader.h"
#include "tests/statements/ofx/OfxTexts.h"
#include "tests/support/CollectedStatement.h"

namespace clb {
namespace {

using Texts = std::vector<std::string>;

Texts RowsOf(const std::string& text)
{
    return Collect(*ReadOfx(text)).Rows();
}

const Texts kTwoRows = {"2024-01-02 -12.5 Baker | Bread & rolls", "2024-01-03 100 Employer"};

TEST(OfxStructure, ElementsWithoutEndTagsInOneLine)
{
    EXPECT_EQ(RowsOf(OfxOfRows(OfxRow("20240102", "-12.50", "<NAME>Baker<MEMO>Bread &amp; rolls") +
                               OfxRow("20240103", "100", "<NAME>Employer"))),
              kTwoRows);
}

TEST(OfxStructure, ElementsWithEndTagsAndIndentation)
{
    EXPECT_EQ(RowsOf("OFXHEADER:100\nDATA:OFXSGML\nVERSION:103\n\n<OFX>\n <BANKMSGSRSV1>\n  "
                     "<STMTTRNRS>\n\t<STMTRS>\n<BANKTRANLIST>\n <STMTTRN>\n  <TRNTYPE>DEBIT"
                     "</TRNTYPE>\n  <DTPOSTED>20240102</DTPOSTED>\n  <TRNAMT>\n-12.50\n</TRNAMT>\n"
                     "  <NAME> Baker </NAME>\n  <MEMO>Bread &amp;\n rolls</MEMO>\n </STMTTRN>\n"
                     "<STMTTRN><DTPOSTED>20240103</DTPOSTED><TRNAMT>+100</TRNAMT>"
                     "<NAME>Employer</NAME></STMTTRN></BANKTRANLIST></STMTRS></STMTTRNRS>"
                     "</BANKMSGSRSV1></OFX>"),
              kTwoRows);
}

TEST(OfxStructure, XmlWithNamespacesAttributesAndSections)
{
    EXPECT_EQ(
        RowsOf("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<?OFX OFXHEADER=\"200\" "
               "VERSION=\"211\"?>\n<!-- made by <STMTTRN> hand -->\n<o:OFX xmlns:o=\"http://x/>y\">"
               "<o:STMTRS><o:BANKTRANLIST><o:STMTTRN id='1'><o:DTPOSTED>20240102</o:DTPOSTED>"
               "<o:TRNAMT>-12.50</o:TRNAMT><o:NAME><![CDATA[Baker]]></o:NAME><o:MEMO>Bread "
               "<![CDATA[& rolls]]></o:MEMO></o:STMTTRN><o:STMTTRN><o:DTPOSTED>20240103"
               "</o:DTPOSTED><o:TRNAMT>100</o:TRNAMT><o:NAME>Employer</o:NAME><o:MEMO/>"
               "</o:STMTTRN></o:BANKTRANLIST></o:STMTRS></o:OFX>"),
        kTwoRows);
}

TEST(OfxStructure, TagsInAnyCaseWithoutHeader)
{
    EXPECT_EQ(RowsOf("<ofx><stmtrs><banktranlist><StmtTrn><dtposted>20240102<trnamt>-12.50"
                     "<name>Baker<memo>Bread & rolls</stmttrn><STMTTRN ><DTPOSTED >20240103"
                     "<TRNAMT\n>100<NAME>Employer</STMTTRN\t></banktranlist></stmtrs></ofx>"),
              kTwoRows);
}

class OfxHeaders : public ::testing::TestWithParam<const char*> {};

TEST_P(OfxHeaders, AreNotNeeded)
{
    const std::string text =
        GetParam() + OfxFile(OfxStatement(OfxRow("20240103", "100"))).substr(kOfxHeader.size());

    EXPECT_TRUE(IsOfx(text));
    EXPECT_EQ(RowsOf(text), Texts{"2024-01-03 100 Shop"});
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, OfxHeaders,
    ::testing::Values(
        "", "\r\n\r\n  ", "OFXHEADER:100DATA:OFXSGMLVERSION:102SECURITY:NONE",
        "OFXHEADER:100 DATA:OFXSGML VERSION:102 ", "ofxheader:100\n\n",
        "OFXHEADER=100\nVERSION=160\n", "DATA:OFXSGML\nENCODING:UTF-8\n",
        "HTTP/1.1 200 OK\r\nContent-Type: application/x-ofx\r\n\r\n",
        "<?OFX OFXHEADER=\"200\" VERSION=\"203\"?>",
        "<?xml version=\"1.0\"?><?OFX OFXHEADER=\"200\"?>",
        "<?xml version='1.0' standalone=\"no\"?>\n<!DOCTYPE OFX SYSTEM \"ofx.dtd\">"));

TEST(OfxStructure, PiecesWithoutRoot)
{
    const std::string row = OfxRow("20240103", "100");

    for (const std::string& text :
         {row, "<BANKTRANLIST>" + row + "</BANKTRANLIST>",
          "<STMTRS><BANKTRANLIST>" + row + "</BANKTRANLIST></STMTRS>",
          "<BANKMSGSRSV1><STMTTRNRS><STMTRS>" + row + "</STMTRS></STMTTRNRS></BANKMSGSRSV1>"}) {
        EXPECT_TRUE(IsOfx(text));
        EXPECT_EQ(RowsOf(text), Texts{"2024-01-03 100 Shop"});
    }
}

TEST(OfxStructure, OtherTextsAreNoOfx)
{
    for (const char* const text :
         {"", "Date,Amount\n2024-01-01,5", "<html><body>OFX</body></html>", "!Type:Bank\n",
          "<?xml version=\"1.0\"?><Document><BkToCstmrStmt/></Document>", "a < b > c",
          "<status>OK</status>", ":20:STARTUMS\n:25:1/2\n"})
        EXPECT_FALSE(IsOfx(text)) << text;
}

TEST(OfxStructure, ARowEndsWithItsListIfNoRowHasAnEndTag)
{
    EXPECT_EQ(RowsOf("<OFX><STMTRS><BANKTRANLIST><STMTTRN><DTPOSTED>20240102<TRNAMT>-12.50"
                     "<NAME>Baker<MEMO>Bread & rolls<STMTTRN><DTPOSTED>20240103<TRNAMT>100"
                     "<NAME>Employer</BANKTRANLIST></STMTRS></OFX>"),
              kTwoRows);
}

TEST(OfxStructure, ARowWithoutEndTagAmongOthersIsDamaged)
{
    const std::string text =
        OfxOfRows("<STMTTRN><DTPOSTED>20240102<TRNAMT>-1\n" + OfxRow("20240103", "100"));

    const CollectedStatement read = Collect(*ReadOfx(text));

    EXPECT_EQ(read.Rows(), Texts{"2024-01-03 100 Shop"});
    EXPECT_EQ(read.Omissions(), Texts{"line 11: the file breaks off in it (20240102 -1)"});
}

// The row was taken for one of the statement that began in it.
TEST(OfxStructure, ARowOutsideAStatementEndsWhereOneBegins)
{
    const std::string text =
        "<OFX><STMTTRN><DTPOSTED>20240102<TRNAMT>1<NAME>a<INVSTMTRS>"
        "<INVACCTFROM><ACCTID>7</INVACCTFROM></INVSTMTRS></STMTTRN></OFX>";

    const CollectedStatement read = Collect(*ReadOfx(text));

    ASSERT_EQ(read.accounts.size(), 2U);
    EXPECT_EQ(read.accounts[0].account.number, "");
    EXPECT_EQ(read.accounts[0].rows.size(), 1U);
    EXPECT_EQ(read.accounts[1].account.number, "7");
}

TEST(OfxStructure, EmptyElementsHideNothing)
{
    EXPECT_EQ(RowsOf(OfxOfRows("<STMTTRN><TRNTYPE><CHECKNUM><CURRENCY><PAYEE><PENDING>"
                               "<DTPOSTED>20240103<MEMO/><TRNAMT>100<NAME>Shop</STMTTRN>")),
              Texts{"2024-01-03 100 Shop"});
}

TEST(OfxStructure, ElementsOfOtherAggregatesDoNotCount)
{
    const std::string more =
        "<NAME>Shop<BANKACCTTO><BANKID>1<ACCTID>9<NAME>Other</BANKACCTTO><IMAGEDATA><REFNUM>7"
        "</IMAGEDATA><ORIGCURRENCY><CURRATE>2<CURSYM>USD</ORIGCURRENCY>";
    const std::string text = OfxOfRows(OfxRow("20240103", "100", more));

    const CollectedStatement read = Collect(*ReadOfx(text));

    EXPECT_EQ(read.Rows(), Texts{"2024-01-03 100 Shop"});
    ASSERT_EQ(read.accounts.size(), 1U);
    EXPECT_EQ(read.accounts[0].account.number, "4711");
    EXPECT_EQ(read.accounts[0].account.currency, "EUR");
}

TEST(OfxStructure, WhatIsNoTagIsText)
{
    EXPECT_EQ(RowsOf(OfxOfRows(OfxRow("20240103", "100", "<NAME>a < b <c d> <3 <> x<=y"))),
              Texts{"2024-01-03 100 a < b <c d> <3 <> x<=y"});
}

TEST(OfxStructure, TextBetweenTagsHidesNoRow)
{
    EXPECT_EQ(RowsOf(OfxOfRows("\xC2\xA0<STMTTRN>\xC2\xA0<DTPOSTED>20240103<TRNAMT>100<NAME>Shop"
                               "</STMTTRN>--")),
              Texts{"2024-01-03 100 Shop"});
}

TEST(OfxStructure, TheRowsLineIsThatOfItsTag)
{
    const std::string text = "<OFX>\r\n<STMTRS>\r<BANKTRANLIST>\n\n" + OfxRow("20240103", "1") +
                             "\n" + OfxRow("20240104", "2") + "</BANKTRANLIST></STMTRS></OFX>";

    const CollectedStatement read = Collect(*ReadOfx(text));

    ASSERT_EQ(read.accounts.at(0).rows.size(), 2U);
    EXPECT_EQ(read.accounts[0].rows[0].line, 5U);
    EXPECT_EQ(read.accounts[0].rows[1].line, 6U);
}

TEST(OfxStructure, SeveralDocumentsInOneFile)
{
    EXPECT_EQ(RowsOf(OfxOfRows(OfxRow("20240103", "1")) + OfxOfRows(OfxRow("20240104", "2"))),
              (Texts{"2024-01-03 1 Shop", "2024-01-04 2 Shop"}));
}

TEST(OfxStructure, DeepNestingAndUnclosedMarkupEnd)
{
    std::string nested = "<OFX>";
    for (int i = 0; i < 100000; ++i)
        nested += "<PAYEE><STATUS a=\"<![CDATA[<!--<?";
    EXPECT_THROW((void)ReadOfx(nested), NotAStatement);

    std::string statements = "<OFX>";
    for (int i = 0; i < 20000; ++i)
        statements += "<STMTRS></CCSTMTRS><STMTTRN></BANKTRANLIST>";
    EXPECT_EQ(Collect(*ReadOfx(statements)).accounts.size(), 1U);
}

}  // namespace
}  // namespace clb
