#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "export/modExport.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

constexpr const char* kHeader =
    "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\nENCODING:USASCII\r\n"
    "CHARSET:1252\r\nCOMPRESSION:NONE\r\nOLDFILEUID:NONE\r\nNEWFILEUID:NONE\r\n\r\n";

class modExportTest : public testing::Test {
protected:
    std::string Written(const std::string& account)
    {
        books_.window.View().AccountID(account);
        books_.window.Export().WriteOFX(books_.folder.Path("out.ofx"));
        return books_.folder.Read("out.ofx");
    }
    /// The transactions in the file written for the account.
    std::string Transactions(const std::string& account)
    {
        const std::string text = Written(account);
        const std::size_t from = text.find("<STMTTRN>");
        return from == std::string::npos ? ""
                                         : text.substr(from, text.find("</BANKTRANLIST>") - from);
    }
    /// Adds a transaction of an account: date, amount, check number, identifier, description,
    /// notes.
    void AddRow(const std::string& account, const std::string& values)
    {
        books_.Execute(
            "INSERT INTO Trans (AccountID, PostDate, Amount, CheckID, FITID, Description, "
            "PayeeName) VALUES ('" +
            clsDatabase::ToSqlString(account) + "', " + values + ")");
    }
    static bool Holds(const std::string& text, const std::string& piece)
    {
        return text.find(piece) != std::string::npos;
    }

    Books books_;
};

TEST_F(modExportTest, AnAccountWithoutTransactionsHasTheZeroDateAndNoBalance)
{
    books_.clock.now = *Date::Of(2006, 3, 5, 10);

    EXPECT_EQ(
        Written("nobody"),
        std::string(kHeader) +
            "<OFX><SIGNONMSGSRSV1><SONRS><STATUS><CODE>0<SEVERITY>INFO</STATUS>"
            "<DTSERVER>20060305100000[0]<LANGUAGE>ENG</SONRS></SIGNONMSGSRSV1><BANKMSGSRSV1>"
            "<STMTTRNRS><TRNUID>0<STATUS><CODE>0<SEVERITY>INFO</STATUS><STMTRS><CURDEF>USD"
            "<BANKACCTFROM><BANKID>000000000<ACCTID>nobody<ACCTTYPE>CHECKING</BANKACCTFROM>"
            "<BANKTRANLIST><DTSTART>18991230000000[0]<DTEND>18991230000000[0]"
            "</BANKTRANLIST><LEDGERBAL><BALAMT>0<DTASOF>20060305100000[0]</LEDGERBAL></STMTRS>"
            "</STMTTRNRS></BANKMSGSRSV1></OFX>\r\n");
}

TEST_F(modExportTest, TheWholeStatementIsTheHeaderAndOneLine)
{
    books_.clock.now = *Date::Of(2006, 3, 5, 10);
    AddRow("12'34", "#2006-03-05#, (-45.50), NULL, 'bank-1', 'Shop', 'a note'");
    AddRow("12'34", "#2006-02-28 23:59:58#, 100, '', NULL, 'Pay', NULL");
    AddRow("99", "#2001-01-01#, 1, '', '', 'Other', ''");

    EXPECT_EQ(
        Written("12'34"),
        std::string(kHeader) +
            "<OFX><SIGNONMSGSRSV1><SONRS><STATUS><CODE>0<SEVERITY>INFO</STATUS>"
            "<DTSERVER>20060305100000[0]<LANGUAGE>ENG</SONRS></SIGNONMSGSRSV1><BANKMSGSRSV1>"
            "<STMTTRNRS><TRNUID>0<STATUS><CODE>0<SEVERITY>INFO</STATUS><STMTRS><CURDEF>USD"
            "<BANKACCTFROM><BANKID>000000000<ACCTID>12'34<ACCTTYPE>CHECKING</BANKACCTFROM>"
            "<BANKTRANLIST><DTSTART>20060228235958[0]<DTEND>20060305000000[0]"
            "<STMTTRN><TRNTYPE>FEE<DTPOSTED>20060305000000[0]<TRNAMT>-45.5<FITID>bank-1<NAME>Shop"
            "<MEMO>a note</STMTTRN>"
            "<STMTTRN><TRNTYPE>CREDIT<DTPOSTED>20060228235958[0]<TRNAMT>100<FITID>CVLB2<NAME>Pay"
            "<MEMO></STMTTRN>"
            "</BANKTRANLIST><LEDGERBAL><BALAMT>54.5<DTASOF>20060305100000[0]</LEDGERBAL></STMTRS>"
            "</STMTTRNRS></BANKMSGSRSV1></OFX>\r\n");
}

TEST_F(modExportTest, EveryRowHasItsOwnDay)
{
    for (const char* day : {"2006-03-05", "1899-12-30", "2006-03-05", "2006-03-06"})
        books_.Execute("INSERT INTO Trans (AccountID, PostDate, Amount) VALUES ('10', #" +
                       std::string(day) + "#, 1)");

    const std::string text = Written("10");

    EXPECT_TRUE(Holds(text, "<DTPOSTED>18991230000000["));
    EXPECT_TRUE(Holds(text, "<DTSTART>18991230000000["));
    EXPECT_TRUE(Holds(text, "<DTEND>20060306000000["));
}

TEST_F(modExportTest, AStatementThatCannotBeFinishedLeavesOnlyTheHeader)
{
    for (int row = 0; row < 2; ++row)
        books_.Execute(
            "INSERT INTO Trans (AccountID, PostDate, Amount) VALUES ('10', #2006-03-05#, "
            "922337203685477.5807)");

    EXPECT_THROW(Written("10"), RuntimeError);

    const std::string text = books_.folder.Read("out.ofx");
    EXPECT_TRUE(text.starts_with("OFXHEADER:100\r\n"));
    EXPECT_TRUE(text.ends_with("\r\nNEWFILEUID:NONE\r\n\r\n"));
}

TEST_F(modExportTest, AStatementThatCannotBeFinishedLeavesTheExistingFile)
{
    const std::string former = Written("10");
    for (int row = 0; row < 2; ++row)
        books_.Execute(
            "INSERT INTO Trans (AccountID, PostDate, Amount) VALUES ('10', #2006-03-05#, "
            "922337203685477.5807)");

    EXPECT_THROW(Written("10"), RuntimeError);

    EXPECT_EQ(books_.folder.Read("out.ofx"), former);
}

TEST_F(modExportTest, ACheckNumberDecidesTheTypeBeforeTheSignDoes)
{
    AddRow("1", "#2006-03-05#, (-50), '1001', 'a', 'x', ''");
    AddRow("1", "#2006-03-05#, 50, '1002', 'b', 'x', ''");
    AddRow("1", "#2006-03-05#, 0, '', 'c', 'x', ''");
    AddRow("1", "#2006-03-05#, 0.0001, NULL, 'd', 'x', ''");
    AddRow("1", "#2006-03-05#, (-0.0001), NULL, 'e', 'x', ''");

    const std::string posted = "<DTPOSTED>20060305000000[0]<TRNAMT>";
    EXPECT_EQ(Transactions("1"), "<STMTTRN><TRNTYPE>CHECK" + posted +
                                     "-50<FITID>a<CHECKNUM>1001<NAME>x<MEMO></STMTTRN>"
                                     "<STMTTRN><TRNTYPE>CHECK" +
                                     posted +
                                     "50<FITID>b<CHECKNUM>1002<NAME>x<MEMO></STMTTRN>"
                                     "<STMTTRN><TRNTYPE>FEE" +
                                     posted +
                                     "0<FITID>c<NAME>x<MEMO></STMTTRN>"
                                     "<STMTTRN><TRNTYPE>CREDIT" +
                                     posted +
                                     "0.0001<FITID>d<NAME>x<MEMO></STMTTRN>"
                                     "<STMTTRN><TRNTYPE>FEE" +
                                     posted + "-0.0001<FITID>e<NAME>x<MEMO></STMTTRN>");
}

TEST_F(modExportTest, RowsWithoutAnIdentifierAreNumberedByTheirPlace)
{
    for (const char* fitid : {"'a'", "'b'", "''", "'d'", "NULL"})
        AddRow("1", std::string("#2006-03-05#, -1, '', ") + fitid + ", 'x', ''");

    const std::string text = Transactions("1");

    std::string identifiers;
    for (std::size_t at = text.find("<FITID>"); at != std::string::npos;
         at = text.find("<FITID>", at + 1))
        identifiers += text.substr(at + 7, text.find('<', at + 7) - at - 7) + " ";
    EXPECT_EQ(identifiers, "a b CVLB3 d CVLB5 ");
}

TEST_F(modExportTest, AmountsHaveNoGroupingAndNoTrailingZeros)
{
    for (const char* amount : {"-12.50", "100.00", "1234567.8900", "0.1234", "-0.5"})
        AddRow("1", std::string("#2006-03-05#, (") + amount + "), '', 'f', 'x', ''");

    const std::string text = Written("1");

    for (const char* amount : {"-12.5", "100", "1234567.89", "0.1234", "-0.5"})
        EXPECT_TRUE(Holds(text, std::string("<TRNAMT>") + amount + "<FITID>")) << amount;
    EXPECT_TRUE(Holds(text, "<BALAMT>1234655.0134<DTASOF>"));
}

TEST_F(modExportTest, NothingIsEscapedAndWhatTheCodePageLacksIsAQuestionMark)
{
    AddRow("A&\u20ac",
           "#2006-03-05#, -1, '<1>', 'f&f', 'A & B <c> caf\u00e9 \u20ac', "
           "'\u8d85\U0001F600 \u201cok\u201d'");

    const std::string text = Written("A&\u20ac");

    EXPECT_TRUE(Holds(text, "<ACCTID>A&\x80<ACCTTYPE>"));
    EXPECT_TRUE(Holds(text,
                      "<FITID>f&f<CHECKNUM><1><NAME>A & B <c> caf\xE9 \x80<MEMO>?? \x93ok\x94"
                      "</STMTTRN>"));
}

TEST_F(modExportTest, MissingFieldsAreEmptyTexts)
{
    AddRow("1", "#2006-03-05#, NULL, NULL, NULL, NULL, NULL");

    EXPECT_EQ(Transactions("1"),
              "<STMTTRN><TRNTYPE>FEE<DTPOSTED>20060305000000[0]<TRNAMT>"
              "<FITID>CVLB1<NAME><MEMO></STMTTRN>");
}

TEST_F(modExportTest, EveryStampEndsWithTheZonesOffsetInWholeHours)
{
    AddRow("1", "#2005-07-05#, -1, '', '', 'x', ''");
    books_.clock.now = *Date::Of(2006, 1, 15, 8, 5, 3);
    for (const auto& [bias, suffix] :
         {std::pair(300, "[-5]<"), std::pair(-330, "[6]<"), std::pair(-840, "[14]<")}) {
        SCOPED_TRACE(suffix);
        books_.clock.zone.bias = bias;

        const std::string text = Written("1");

        EXPECT_TRUE(Holds(text, std::string("<DTSERVER>20060115080503") + suffix));
        EXPECT_TRUE(Holds(text, std::string("<DTASOF>20060115080503") + suffix));
        for (const char* tag : {"<DTSTART>", "<DTEND>", "<DTPOSTED>"})
            EXPECT_TRUE(Holds(text, std::string(tag) + "20050705000000" + suffix)) << tag;
    }
}

}  // namespace
}  // namespace clb
