#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "export/modExport.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

class modExportTest : public testing::Test {
protected:
    std::string Written(const std::string& account)
    {
        books_.window.View().AccountID(account);
        books_.window.Export().WriteOFX(books_.folder.Path("out.ofx"));
        return books_.folder.Read("out.ofx");
    }
    static bool Holds(const std::string& text, const std::string& piece)
    {
        return text.find(piece) != std::string::npos;
    }

    Books books_;
};

TEST_F(modExportTest, AnAccountWithoutTransactionsGivesTheZeroDate)
{
    const std::string text = Written("10");

    EXPECT_TRUE(
        text.starts_with("OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\n"
                         "ENCODING:USASCII\r\nCHARSET:1252\r\nCOMPRESSION:NONE\r\n"
                         "OLDFILEUID:NONE\r\nNEWFILEUID:NONE\r\n\r\n<OFX>"));
    EXPECT_TRUE(Holds(text, "<DTSTART>18991230000000["));
    EXPECT_TRUE(Holds(text, "<DTEND>18991230000000["));
    EXPECT_TRUE(Holds(text, "<BALAMT>0<DTASOF>"));
    EXPECT_TRUE(text.ends_with("</OFX>\r\n"));
}

TEST_F(modExportTest, EveryRowHasItsOwnDay)
{
    for (const char* day : {"2006-03-05", "1899-12-30", "2006-03-05"})
        books_.Execute("INSERT INTO Trans (AccountID, PostDate, Amount) VALUES ('10', #" +
                       std::string(day) + "#, 1)");

    const std::string text = Written("10");

    EXPECT_TRUE(Holds(text, "<DTPOSTED>18991230000000["));
    EXPECT_TRUE(Holds(text, "<DTSTART>18991230000000["));
    EXPECT_TRUE(Holds(text, "<DTEND>20060305000000["));
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

TEST_F(modExportTest, TypesIdentifiersAndAmountsFollowTheRow)
{
    const auto add = [this](const std::string& values) {
        books_.Execute(
            "INSERT INTO Trans (AccountID, PostDate, Amount, CheckID, FITID, Description) "
            "VALUES ('10', " +
            values + ")");
    };
    add("#2006-03-05#, (-50), '1001', 'bank-1', 'Rent'");
    add("#2006-03-04#, 12.5, '', '', 'Pay'");
    add("#2006-03-06#, 0, '', '', 'Nil'");

    const std::string text = Written("10");

    EXPECT_TRUE(Holds(text, "<TRNTYPE>CHECK<DTPOSTED>20060305000000["));
    EXPECT_TRUE(Holds(text, "<TRNAMT>-50<FITID>bank-1<CHECKNUM>1001<NAME>Rent<MEMO></STMTTRN>"));
    EXPECT_TRUE(Holds(text, "<TRNTYPE>CREDIT<DTPOSTED>20060304000000["));
    EXPECT_TRUE(Holds(text, "<TRNAMT>12.5<FITID>CVLB2<NAME>Pay"));
    EXPECT_TRUE(Holds(text, "<TRNTYPE>FEE<DTPOSTED>20060306000000["));
    EXPECT_TRUE(Holds(text, "<FITID>CVLB3<NAME>Nil"));
    EXPECT_TRUE(Holds(text, "<DTSTART>20060304000000["));
    EXPECT_TRUE(Holds(text, "<DTEND>20060306000000["));
    EXPECT_TRUE(Holds(text, "<BALAMT>-37.5<DTASOF>"));
}

}  // namespace
}  // namespace clb
