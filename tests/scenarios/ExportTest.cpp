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
    explicit ExportTest(const char* zone = "UTC") { setenv("TZ", zone, 1); }
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
    /// The transactions in the file written for the account.
    std::string Transactions(const std::string& account)
    {
        const std::string text = Written(account);
        const std::size_t from = text.find("<STMTTRN>");
        return from == std::string::npos ? ""
                                         : text.substr(from, text.find("</BANKTRANLIST>") - from);
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

TEST_F(ExportTest, AnAccountWithoutTransactionsHasTheZeroDateAndNoBalance)
{
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

TEST_F(ExportTest, ACheckNumberDecidesTheTypeBeforeTheSignDoes)
{
    AddRow("1", "#2006-03-05#, (-50), '1001', 'a', 'x', ''");
    AddRow("1", "#2006-03-05#, 50, '1002', 'b', 'x', ''");
    AddRow("1", "#2006-03-05#, 0, '', 'c', 'x', ''");
    AddRow("1", "#2006-03-05#, 0.0001, NULL, 'd', 'x', ''");
    AddRow("1", "#2006-03-05#, (-0.0001), NULL, 'e', 'x', ''");

    const std::string text = Transactions("1");

    EXPECT_NE(text.find("<TRNTYPE>CHECK<DTPOSTED>20060305000000[0]<TRNAMT>-50<FITID>a"
                        "<CHECKNUM>1001<NAME>x<MEMO></STMTTRN>"),
              std::string::npos);
    EXPECT_NE(text.find("<TRNTYPE>CHECK<DTPOSTED>20060305000000[0]<TRNAMT>50<FITID>b"
                        "<CHECKNUM>1002<NAME>"),
              std::string::npos);
    EXPECT_NE(text.find("<TRNTYPE>FEE<DTPOSTED>20060305000000[0]<TRNAMT>0<FITID>c<NAME>"),
              std::string::npos);
    EXPECT_NE(text.find("<TRNTYPE>CREDIT<DTPOSTED>20060305000000[0]<TRNAMT>0.0001<FITID>d<NAME>"),
              std::string::npos);
    EXPECT_NE(text.find("<TRNTYPE>FEE<DTPOSTED>20060305000000[0]<TRNAMT>-0.0001<FITID>e<NAME>"),
              std::string::npos);
}

TEST_F(ExportTest, RowsWithoutAnIdentifierAreNumberedByTheirPlace)
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

TEST_F(ExportTest, AmountsHaveNoGroupingAndNoTrailingZeros)
{
    for (const char* amount : {"-12.50", "100.00", "1234567.8900", "0.1234", "-0.5"})
        AddRow("1", std::string("#2006-03-05#, (") + amount + "), '', 'f', 'x', ''");

    const std::string text = Written("1");

    for (const char* amount : {"-12.5", "100", "1234567.89", "0.1234", "-0.5"})
        EXPECT_NE(text.find(std::string("<TRNAMT>") + amount + "<FITID>"), std::string::npos)
            << amount;
    EXPECT_NE(text.find("<BALAMT>1234655.0134<DTASOF>"), std::string::npos);
}

TEST_F(ExportTest, NothingIsEscapedAndWhatTheCodePageLacksIsAQuestionMark)
{
    AddRow("A&\u20ac",
           "#2006-03-05#, -1, '<1>', 'f&f', 'A & B <c> caf\u00e9 \u20ac', "
           "'\u8d85\U0001F600 \u201cok\u201d'");

    const std::string text = Written("A&\u20ac");

    EXPECT_NE(text.find("<ACCTID>A&\x80<ACCTTYPE>"), std::string::npos);
    EXPECT_NE(text.find("<FITID>f&f<CHECKNUM><1><NAME>A & B <c> caf\xE9 \x80<MEMO>?? \x93ok\x94"
                        "</STMTTRN>"),
              std::string::npos);
}

TEST_F(ExportTest, MissingFieldsAreEmptyTexts)
{
    AddRow("1", "#2006-03-05#, NULL, NULL, NULL, NULL, NULL");

    EXPECT_EQ(Transactions("1"),
              "<STMTTRN><TRNTYPE>FEE<DTPOSTED>20060305000000[0]<TRNAMT>"
              "<FITID>CVLB1<NAME><MEMO></STMTTRN>");
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

struct Zone {
    const char* name;
    const char* zone;
    const char* moment;
    int offset;
};

class ExportZoneTest : public ExportTest, public testing::WithParamInterface<Zone> {
protected:
    ExportZoneTest() : ExportTest(GetParam().zone) { now = GetParam().moment; }
};

TEST_P(ExportZoneTest, EveryStampEndsWithTheOffsetInWholeHours)
{
    AddRow("1", "#2005-07-05#, -1, '', '', 'x', ''");
    const std::string suffix = "[" + std::to_string(GetParam().offset) + "]";

    const std::string text = Written("1");

    EXPECT_EQ(Call("TimeZoneOffset"), GetParam().offset);
    std::size_t stamps = 0;
    for (const char* tag : {"<DTSERVER>", "<DTSTART>", "<DTEND>", "<DTPOSTED>", "<DTASOF>"}) {
        const std::size_t at = text.find(tag) + std::string(tag).size();
        EXPECT_EQ(text.substr(at + 14, suffix.size() + 1), suffix + "<") << tag;
        ++stamps;
    }
    EXPECT_EQ(stamps, 5U);
    const std::string present = Replace(Replace(Replace(now, "-", ""), ":", ""), "T", "");
    EXPECT_NE(text.find("<DTSERVER>" + present + suffix), std::string::npos);
    EXPECT_NE(text.find("<DTASOF>" + present + suffix), std::string::npos);
    EXPECT_NE(text.find("<DTPOSTED>20050705000000" + suffix), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    ManyPlaces, ExportZoneTest,
    testing::Values(Zone{"NewYorkInWinter", "America/New_York", "2006-01-15T08:05:03", -5},
                    Zone{"NewYorkInSummer", "America/New_York", "2006-07-15T20:05:03", -4},
                    Zone{"BerlinInWinter", "Europe/Berlin", "2006-12-31T23:59:59", 1},
                    Zone{"BerlinInSummer", "Europe/Berlin", "2006-07-01T00:00:00", 2},
                    // Half hours are rounded to the even hour.
                    Zone{"Kolkata", "Asia/Kolkata", "2006-03-05T10:00:00", 6},
                    Zone{"Kathmandu", "Asia/Kathmandu", "2006-03-05T10:00:00", 6},
                    Zone{"Marquesas", "Pacific/Marquesas", "2006-03-05T10:00:00", -10},
                    Zone{"NewfoundlandInWinter", "America/St_Johns", "2006-01-15T10:00:00", -4},
                    Zone{"NewfoundlandInSummer", "America/St_Johns", "2006-07-15T10:00:00", -2},
                    Zone{"AdelaideInSummer", "Australia/Adelaide", "2006-01-15T10:00:00", 10},
                    Zone{"AdelaideInWinter", "Australia/Adelaide", "2006-07-15T10:00:00", 10},
                    Zone{"LordHoweInSummer", "Australia/Lord_Howe", "2006-01-15T10:00:00", 11},
                    Zone{"LordHoweInWinter", "Australia/Lord_Howe", "2006-07-15T10:00:00", 10},
                    Zone{"Tokyo", "Asia/Tokyo", "2006-07-15T10:00:00", 9},
                    Zone{"Kiritimati", "Pacific/Kiritimati", "2006-07-15T10:00:00", 14},
                    Zone{"Utc", "UTC", "2006-07-15T10:00:00", 0},
                    Zone{"LondonInSummer", "Europe/London", "2006-07-15T10:00:00", 1}),
    [](const testing::TestParamInfo<Zone>& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace clb
