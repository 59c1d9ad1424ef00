// Exporting an account: the command, the written statement and its zone.

#include <cstdlib>

#include "base/Text.h"
#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

constexpr const char* kHeader =
    "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\nENCODING:USASCII\r\n"
    "CHARSET:1252\r\nCOMPRESSION:NONE\r\nOLDFILEUID:NONE\r\nNEWFILEUID:NONE\r\n\r\n";

class ExportTest : public Scenario {
protected:
    ExportTest() { setenv("TZ", "UTC", 1); }
    ~ExportTest() override { unsetenv("TZ"); }

    void AddRow(const std::string& account, const std::string& values)
    {
        Sql("INSERT INTO Trans (AccountID, PostDate, Amount, CheckID, FITID, Description, "
            "PayeeName) VALUES ('" +
            Replace(account, "'", "''") + "', " + values + ")");
    }
    /// The file written for the account.
    std::string Written(const std::string& account)
    {
        SetView("AccountID", account);
        Call("WriteOFX", {folder.Path("out.ofx")});
        return folder.Read("out.ofx");
    }
};

TEST_F(ExportTest, TheWholeStatementIsTheHeaderAndOneLine)
{
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

TEST_F(ExportTest, EveryMonthAndEveryPieceIsWrittenInTheOrderOfTheTable)
{
    AddAccount("B-1", "Bank", "Checking");
    AddTransaction("B-1", "2006-3", "-3");
    AddTransaction("B-1", "2004-1", "-1");
    AddTransaction("B-1", "2007-12", "-2");
    ShowAll();
    Click("Checking");
    Call("SplitTransaction", {1, 0, "-2.5", "-0.5"});

    const std::string text = Written("B-1");

    std::string amounts;
    for (std::size_t at = text.find("<TRNAMT>"); at != std::string::npos;
         at = text.find("<TRNAMT>", at + 1))
        amounts += text.substr(at + 8, text.find('<', at + 8) - at - 8) + " ";
    EXPECT_EQ(amounts, "-2.5 -1 -2 -0.5 ");
    EXPECT_NE(text.find("<DTSTART>20040115000000[0]<DTEND>20071215000000[0]"), std::string::npos);
    EXPECT_NE(text.find("<BALAMT>-6<"), std::string::npos);
}

TEST_F(ExportTest, TheStatementReadsTheAccountsRowsOnce)
{
    SetView("AccountID", "O'1");
    Trace();

    Call("WriteOFX", {folder.Path("out.ofx")});

    EXPECT_EQ(Statements(), "select * from Trans where AccountID = 'O''1'\n");
}

TEST_F(ExportTest, TheCommandAsksForAFileAndWritesIt)
{
    AddAccount("B-1", "Bank", "Checking");
    AddTransaction("B-1", "2006-3", "-9");
    ShowAll();
    Click("Checking");
    const std::string before = ToLine(Window()) + ToLine(Grid());
    // No extension is added to a name without one; an existing file is replaced.
    const std::string path = folder.Write("statement", std::string(10000, 'x'));
    AnswerFile(path);
    Events();

    Menu("mnuF_Export");

    const Json events = Events();
    ASSERT_EQ(events.size(), 1U) << ToLine(events);
    EXPECT_EQ(events[0], (Json{{"event", "file"},
                               {"kind", "save"},
                               {"filter", "Open Financial Exchange|*.ofx|"},
                               {"flags", 2054},
                               {"title", "Export"},
                               {"name", ""},
                               {"answer", path}}));
    EXPECT_TRUE(folder.Read("statement").starts_with(std::string(kHeader) + "<OFX>"));
    EXPECT_TRUE(folder.Read("statement").ends_with("</OFX>\r\n"));
    EXPECT_FALSE(folder.Holds("statement.ofx"));
    EXPECT_EQ(ToLine(Window()) + ToLine(Grid()), before);
}

TEST_F(ExportTest, CancellingWritesNothing)
{
    AddAccount("B-1", "Bank", "Checking");
    ShowAll();
    AnswerFile("");
    Trace();

    Menu("mnuF_Export");

    const Json events = Events();
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0]["event"], "file");
}

TEST_F(ExportTest, AListsCurrentAccountIsExported)
{
    AddAccount("B-1", "Bank", "Checking");
    AddAccount("B-2", "Bank", "Savings");
    ShowAll();
    const auto exported = [this] {
        AnswerFile(folder.Path("list.ofx"));
        Menu("mnuF_Export");
        const std::string text = folder.Read("list.ofx");
        const std::size_t from = text.find("<ACCTID>") + 8;
        return text.substr(from, text.find('<', from) - from);
    };

    Move(2, 1);
    EXPECT_EQ(exported(), "B-2");

    Click("Bank");
    EXPECT_EQ(exported(), "B-1");
    Move(2, 1);
    EXPECT_EQ(exported(), "B-2");
}

TEST_F(ExportTest, AnUnsavedRowIsExportedAsItIsStored)
{
    AddAccount("B-1", "Bank", "Checking");
    AddTransaction("B-1", "2006-3", "-9");
    ShowAll();
    Click("Checking");
    Edit(1, 3, "-10");
    AnswerFile(folder.Path("out.ofx"));

    Menu("mnuF_Export");

    EXPECT_NE(folder.Read("out.ofx").find("<TRNAMT>-9<"), std::string::npos);
    EXPECT_EQ(Grid()["dirty"], true);
}

TEST_F(ExportTest, AFileThatCannotBeMadeIsARuntimeErrorAndTheProgramContinues)
{
    AddAccount("B-1", "Bank", "Checking");
    ShowAll();
    Click("Checking");
    AnswerFile(folder.Path("no/such/folder/out.ofx"));

    EXPECT_GT(ErrorOf({{"do", "menu"}, {"item", "mnuF_Export"}}), 0);

    EXPECT_EQ(Window()["enabled"], true);
    EXPECT_EQ(Window()["pointer"], 0);
}

TEST_F(ExportTest, ExportedTransactionsAreNotImportedAgain)
{
    AddAccount("B-1", "Bank", "Checking");
    ShowAll();
    const auto import = [this](const std::string& path) {
        AnswerFile(path);
        Menu("mnuF_Import");
        return Rows("SELECT COUNT( 1 ) AS [Count] FROM Trans");
    };
    const std::string bank = folder.Write(
        "bank.ofx",
        "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n\r\n<OFX>\r\n<ACCTID>B-1\r\n"
        "<STMTTRN><DTPOSTED>20060305<TRNAMT>-45.50<FITID>1<NAME>Shop</STMTTRN>\r\n"
        "<STMTTRN><DTPOSTED>20060305<TRNAMT>-45.50<FITID>2<NAME>Shop</STMTTRN>\r\n</OFX>\r\n");
    EXPECT_EQ(import(bank), "[2]");
    Written("B-1");

    EXPECT_EQ(import(folder.Path("out.ofx")), "[2]");

    Sql("DELETE FROM Trans");
    EXPECT_EQ(import(folder.Path("out.ofx")), "[2]");
    EXPECT_EQ(Rows("SELECT PostDate, Amount, Description, FITID FROM Trans ORDER BY FITID"),
              R"(["2006-03-05","-45.5","Shop","1"] ["2006-03-05","-45.5","Shop","2"])");
}

TEST_F(ExportTest, EveryStampEndsWithTheOffsetOfTheZoneAtThatMoment)
{
    setenv("TZ", "America/New_York", 1);
    now = "2006-07-15T20:05:03";
    AddRow("1", "#2005-01-05#, -1, '', '', 'x', ''");

    const std::string text = Written("1");

    EXPECT_NE(text.find("<DTSERVER>20060715200503[-4]<"), std::string::npos);
    EXPECT_NE(text.find("<DTASOF>20060715200503[-4]<"), std::string::npos);
    EXPECT_NE(text.find("<DTSTART>20050105000000[-4]<"), std::string::npos);
    EXPECT_NE(text.find("<DTPOSTED>20050105000000[-4]<"), std::string::npos);
}

}  // namespace
}  // namespace clb
