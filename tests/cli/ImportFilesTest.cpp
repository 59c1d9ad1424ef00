// clb import of many files and folders.

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>

#include "base/Text.h"
#include "tests/cli/CommandFixture.h"

namespace clb {
namespace {

namespace fs = std::filesystem;
using ::testing::EndsWith;
using ::testing::HasSubstr;

class ImportFilesTest : public CommandFixture {
protected:
    ImportFilesTest()
    {
        Run("new " + Books());
        Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('B-1', 'Checking', "
            "'Bank')");
        Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('C-1', 'Purse', 'Cash')");
    }

    static std::string Transaction(const std::string& fitid, const std::string& amount = "1")
    {
        return "<STMTTRN><DTPOSTED>20060305<TRNAMT>" + amount + "<FITID>" + fitid +
               "<NAME>Shop</STMTTRN>\r\n";
    }
    static std::string Ofx(const std::string& account, const std::string& transactions)
    {
        return "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n<OFX>\r\n<ACCTID>" + account +
               "\r\n" + transactions;
    }
    static std::string Qif(const std::string& amount)
    {
        return "!Type:Bank\r\nD3/15/06\r\nT" + amount + "\r\n^\r\n";
    }
    std::string File(const std::string& name) { return " '" + folder.Path(name) + "'"; }
    std::string Rows() { return Sql("SELECT AccountID, Amount FROM Trans ORDER BY Sequence"); }

    /// Names and bytes of all files below a folder.
    std::map<std::string, std::string> Files(const std::string& below)
    {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(folder.Path(below)))
            if (entry.is_regular_file())
                files[entry.path().string()] =
                    folder.Read(fs::relative(entry.path(), folder.Path()).string());
        return files;
    }
};

TEST_F(ImportFilesTest, FoldersAreReadInOrderOfNameAndReportedInATable)
{
    folder.Write("in/a.OFX", Ofx("B-1", Transaction("F1") + Transaction("F2")));
    folder.Write("in/b/c.qfx", Ofx("B-1", Transaction("F2") + Transaction("F3")));
    folder.Write("in/d.QIF", Qif("-7"));
    folder.Write("in/e.ofc", "no statement\r\n");
    folder.Write("in/notes.txt", "not imported");
    const std::string last = folder.Write("last", Ofx("C-1", Transaction("F9")));

    EXPECT_EQ(Run("import" + File("in") + File("last") + " --qif-account Purse" + Home()), 1);

    const std::string in = folder.Path("in");
    const std::string blanks(in.size() + 8 - last.size(), ' ');
    const std::string more(in.size() + 2, ' ');
    EXPECT_EQ(Out(),
              "File" + more + "    Added  Skipped  Refused\n" + std::string(in.size() + 8, '-') +
                  "  -----  -------  --------------------\n" + in + "/a.OFX        2        0\n" +
                  in + "/b/c.qfx      1        1\n" + in + "/d.QIF        1        0\n" + in +
                  "/e.ofc        0        0  Invalid file format.\n"
                  "  The file holds no table with dates and amounts.\n" +
                  last + blanks + "      1        0\n" + "Not a statement: " + in +
                  "/notes.txt: The file holds no table with dates and amounts.\n"
                  "5 files: 5 added, 1 skipped, 1 refused\n");
    EXPECT_EQ(Err(), "");
    EXPECT_EQ(Rows(), R"([["B-1","1"],["B-1","1"],["B-1","1"],["C-1","-7"],["C-1","1"]])");
}

/// What is named as a statement must be one. What is not may be anything.
TEST_F(ImportFilesTest, AFoldersFilesAreTakenByTheirContent)
{
    const std::string camt =
        "<?xml version=\"1.0\"?><Document xmlns=\"urn:iso:std:iso:20022:tech:"
        "xsd:camt.053.001.08\"><BkToCstmrStmt><Stmt><Acct><Id><Othr><Id>B-1"
        "</Id></Othr></Id></Acct><Ntry><Amt Ccy=\"EUR\">4</Amt><CdtDbtInd>CRDT"
        "</CdtDbtInd><Sts>BOOK</Sts><BookgDt><Dt>2006-03-05</Dt></BookgDt>"
        "</Ntry></Stmt></BkToCstmrStmt></Document>";
    folder.Write("in/a.xml", camt);
    folder.Write("in/b.csv", "Date,Amount,Description\n2006-03-25,-5,Shop\n");
    folder.Write("in/c.download", Ofx("B-1", Transaction("F1", "6")));
    folder.Write("in/d.sta",
                 ":20:1\r\n:25:B-1\r\n:60F:C060301EUR0,\r\n:61:0603050305C7,NMSC"
                 "NONREF\r\n:86:Shop\r\n:62F:C060305EUR7,\r\n-\r\n");
    folder.Write("in/addresses.csv", "Name,Street\nSmith,Elm Street\nMiller,Main Street\n");
    folder.Write("in/e.xml", "<?xml version=\"1.0\"?><catalog/>");
    folder.Write("in/f.pdf", "%PDF-1.4");
    folder.Write("in/a.ofx.org", Ofx("B-1", Transaction("F2")));
    folder.Write("in/.hidden", Ofx("B-1", Transaction("F3")));

    EXPECT_EQ(Run("import" + File("in") + " --qif-account B-1 --json" + Home()), 0) << Out();

    EXPECT_EQ(Sql("SELECT AccountID, Amount FROM Trans ORDER BY Amount"),
              R"([["B-1","-5"],["B-1","4"],["B-1","6"],["B-1","7"]])");
    Run("import" + File("in") + " --qif-account B-1 --json" + Home());
    const Json reply = Json::parse(Out());
    EXPECT_EQ(reply["files"].size(), 4U);
    std::vector<std::string> others;
    for (const Json& other : reply["others"])
        others.push_back(other["file"]);
    EXPECT_THAT(others,
                testing::UnorderedElementsAre(folder.Path("in/addresses.csv"),
                                              folder.Path("in/e.xml"), folder.Path("in/f.pdf")));
}

TEST_F(ImportFilesTest, AFileThatFailsDoesNotStopTheOthers)
{
    folder.Write("in/a.ofx", Ofx("B-1", Transaction("F1") + Transaction("F2", "much")));
    folder.Write("in/b.ofx", Ofx("unknown", Transaction("F1")));
    folder.Write("in/c.qif", "!Type:Bank\r\nDsoon\r\nT4\r\n^\r\nD3/15/06\r\nT5\r\n^\r\n");
    folder.Write("in/d.ofx", Ofx("B-1", Transaction("F4")));

    EXPECT_EQ(Run("import" + File("in") + File("none.ofx") + " --qif-account B-1 --json" + Home()),
              1);

    const Json files = Json::parse(Out())["files"];
    ASSERT_EQ(files.size(), 5U);
    EXPECT_EQ(files[0]["refused"],
              "Invalid data was found while importing:\n"
              "line 7 left out: it has no amount that can be read exactly: 20060305 much Shop");
    EXPECT_EQ(files[0]["imported"], 1);
    EXPECT_NE(files[1]["refused"], nullptr);
    EXPECT_EQ(files[2]["refused"],
              "Invalid data was found while importing:\n"
              "line 2 left out: it has no date that can be read: soon 4");
    EXPECT_EQ(files[2]["imported"], 1);
    EXPECT_EQ(files[3]["refused"], nullptr);
    EXPECT_EQ(files[4]["refused"], "File not found");
    EXPECT_EQ(Rows(), R"([["B-1","1"],["B-1","5"],["B-1","1"]])");
}

TEST_F(ImportFilesTest, WithoutRefusalsItSucceedsAndADuplicateIsNotARefusal)
{
    folder.Write("in/a.ofx", Ofx("B-1", Transaction("F1")));

    EXPECT_EQ(Run("import" + File("in") + Home()), 0);
    EXPECT_EQ(Run("import" + File("in") + Home()), 0);
    EXPECT_THAT(Out(), HasSubstr("1 file: 0 added, 1 skipped, 0 refused\n"));

    fs::create_directory(folder.Path("empty"));
    EXPECT_EQ(Run("import" + File("empty") + Home()), 0);
    EXPECT_THAT(Out(), HasSubstr("0 files: 0 added, 0 skipped, 0 refused\n"));
}

TEST_F(ImportFilesTest, OneFileIsReportedInASentence)
{
    folder.Write("a.qif", Qif("5"));

    EXPECT_EQ(Run("import" + File("a.qif") + " --qif-account C-1" + Home()), 0);

    EXPECT_EQ(Out(), "Imported 1 transaction\n");
    EXPECT_EQ(Rows(), R"([["C-1","5"]])");
}

TEST_F(ImportFilesTest, ATrialReportsTheSameAndChangesNothing)
{
    folder.Write("in/a.ofx",
                 Replace(Ofx("new-1", Transaction("F1") + Transaction("F2")), "\r", ""));
    folder.Write("in/b.ofx", Replace(Ofx("new-1", Transaction("F2")), "\r", ""));
    folder.Write("in/c.ofx", "no statement");
    folder.Write("in/d.ofx", Replace(Ofx("new-1", Transaction("F3")), "\r", ""));
    folder.Write("in/d.ofx.org", "precious");
    folder.Write("in/e.qif", Qif("5"));
    const auto statements = Files("in");
    const auto books = Files("books");
    const std::string words = "import" + File("in") + " --create Visa";

    EXPECT_EQ(Run(words + " --dry-run" + Home()), 1);

    const std::string trial = Out();
    EXPECT_EQ(Files("in"), statements);
    EXPECT_EQ(Files("books"), books);
    EXPECT_THAT(trial, HasSubstr("a.ofx      2        0\n"));
    EXPECT_THAT(trial, HasSubstr("b.ofx      0        1\n"));
    EXPECT_THAT(trial, HasSubstr("c.ofx      0        0  Invalid file format.\n"));
    EXPECT_THAT(trial, HasSubstr("d.ofx      1        0\n"));
    EXPECT_EQ(Run(words + Home()), 1);
    EXPECT_EQ(Out(), Replace(trial, "; a dry run, nothing was changed", ""));
    EXPECT_EQ(Files("in"), statements);
    EXPECT_NE(Files("books"), books);
}

TEST_F(ImportFilesTest, ATrialNeedsTheFolderThatIsNamed)
{
    folder.Write("a.ofx", Ofx("B-1", Transaction("F1")));

    EXPECT_EQ(Run("import" + File("a.ofx") + " --dry-run --home" + File("nowhere")), 1);

    EXPECT_EQ(Err(), "clb: The database file '" + folder.Path("nowhere/db/clb.mdb") +
                         "' does not exist.\n");
    EXPECT_FALSE(folder.Holds("nowhere"));
}

/// All of it was left out, or put into another account, by the import of the file as it is.
TEST_F(ImportFilesTest, EveryTransactionOfAnOddFileIsImported)
{
    folder.Write("in/a.ofx", Ofx("B-1", Transaction("F1") + "<STMTTRN></STMTTRN>" +
                                            Transaction("F2") + Transaction("F3")));
    folder.Write("in/b.ofx", Ofx("B-1", Transaction("G1") + "<ACCTID>C-1" + Transaction("G2")));
    folder.Write("in/c.ofx", Ofx("B-1", Transaction("") + Transaction("") + Transaction("")));
    folder.Write("in/d.qif", "!Type:Bank\nD3/15/06\nT5\n^\r\nD3/16/06\r\nT6\r\n^\r\n");
    const auto statements = Files("in");

    EXPECT_EQ(Run("import" + File("in") + " --qif-account Checking" + Home()), 0) << Out();

    EXPECT_THAT(Out(), HasSubstr("  Warning: line 7 left out: it has no date that can be read\n"));
    EXPECT_EQ(Sql("SELECT AccountID, COUNT(1) AS N FROM Trans GROUP BY AccountID"),
              R"([["B-1",9],["C-1",1]])");
    EXPECT_EQ(Files("in"), statements);
    EXPECT_EQ(Run("import" + File("in") + " --qif-account Checking" + Home()), 0);
    EXPECT_THAT(Out(), HasSubstr("4 files: 0 added, 10 skipped, 0 refused\n"));
}

TEST_F(ImportFilesTest, EveryRowThatCannotBeReadIsListed)
{
    const std::string text =
        "!Type:Bank\r\nDsoon\r\nT1\r\n^\r\nDlater\r\nT2\r\n^\r\nD3/15/06\r\nTmuch\r\n^\r\n";
    const auto list = [](const std::string& indent) {
        return "Invalid data was found while importing:\n" + indent +
               "line 2 left out: it has no date that can be read: soon 1\n" + indent +
               "line 5 left out: it has no date that can be read: later 2\n" + indent +
               "line 8 left out: it has no amount that can be read exactly: 3/15/06 much\n";
    };
    folder.Write("in/a.qif", text);
    folder.Write("b.qif", text);

    EXPECT_EQ(Run("import" + File("in") + " --qif-account B-1" + Home()), 1);
    EXPECT_THAT(Out(), HasSubstr(list("  ")));

    EXPECT_EQ(Run("import" + File("b.qif") + " --qif-account B-1" + Home()), 1);
    EXPECT_EQ(Err(), list(""));
    EXPECT_EQ(Out(), "Imported 0 transactions\n");

    folder.Write("c.qif", "!Type:Bank\r\nD" + std::string(300, 'x') + "\r\nT1\r\n^\r\n");
    EXPECT_EQ(Run("import" + File("c.qif") + " --qif-account B-1" + Home()), 1);
    EXPECT_THAT(Err(), EndsWith(": " + std::string(100, 'x') + "\n"));
}

/// The repair of line ends would drop the lines after the first carriage return.
TEST_F(ImportFilesTest, AFileWithMixedLineEndsIsReadWholeAndStaysAsItIs)
{
    const std::string file = File("a.ofx");
    const std::string text = "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\n<OFX>\n<ACCTID>new\n" +
                             Transaction("F1") + "\r\n" + Transaction("F2") + "\r\n</OFX>\r\n";
    folder.Write("a.ofx", text);

    EXPECT_EQ(Run("import" + file + Home()), 1);
    EXPECT_THAT(Err(), HasSubstr("The file's account is not known."));
    EXPECT_EQ(Run("import" + file + " --create New" + Home()), 0);
    EXPECT_EQ(Err(), "");
    EXPECT_EQ(Out(), "Imported 2 transactions\n");
    EXPECT_EQ(folder.Read("a.ofx"), text);
    EXPECT_FALSE(folder.Holds("a.ofx.org"));
}

TEST_F(ImportFilesTest, OneFilesWarningsGoToStandardError)
{
    folder.Write("a.ofx", Ofx("B-1", "<STMTTRNP><DTTRAN>20060305<TRNAMT>1<NAME>Inn</STMTTRNP>" +
                                         Transaction("") + Transaction("")));

    EXPECT_EQ(Run("import" + File("a.ofx") + Home()), 0);

    EXPECT_EQ(Out(), "Imported 2 transactions\n");
    EXPECT_EQ(Err(), "Warning: line 6 left out: it is not booked yet: 20060305 1 Inn\n");
    EXPECT_EQ(Run("import" + File("a.ofx") + " --json" + Home()), 0);
    const Json reply = Json::parse(Out());
    EXPECT_EQ(reply["leftOut"]["pending"], 1);
    EXPECT_EQ(reply["omitted"], Json::parse(R"([{"line":6,"reason":"it is not booked yet",)"
                                            R"("text":"20060305 1 Inn","count":1}])"));
    EXPECT_EQ(reply["skipped"], 2);
}

/// Scripts read these keys.
TEST_F(ImportFilesTest, AFileThatIsTakenAsItIsHasTheKeysOfTheImportOfOfxFiles)
{
    folder.Write("a.ofx", Ofx("B-1", Transaction("F1") + Transaction("F2")));

    EXPECT_EQ(Run("import" + File("a.ofx") + " --json" + Home()), 0);

    const Json reply = Json::parse(Out());
    EXPECT_EQ(reply["file"], folder.Path("a.ofx"));
    EXPECT_EQ(reply["imported"], 2);
    EXPECT_EQ(reply["skipped"], 0);
    EXPECT_EQ(reply["refused"], nullptr);
    EXPECT_EQ(reply["balances"], Json::array());
    EXPECT_EQ(reply["backup"], nullptr);
    for (const char* key : {"linesBehindRepair", "behindEmptyTransaction", "beforeAccount",
                            "notClosed", "furtherAccounts", "withoutIdentifier"})
        EXPECT_EQ(reply["leftOut"][key], 0) << key;
    EXPECT_EQ(reply["files"].size(), 1U);
    EXPECT_EQ(reply["dryRun"], false);
}

/// The dates may be in two orders.
class OpenFileTest : public ImportFilesTest {
protected:
    OpenFileTest() { folder.Write("a.qif", kText); }

    static constexpr const char* kText =
        "!Type:Bank\r\nD3/5/06\r\nT1.25\r\nPShop\r\n^\r\nD3/6/06\r\nT-2\r\nPInn\r\n^\r\n";
    const std::string words_ = "import" + File("a.qif") + " --qif-account B-1" + Home();
};

TEST_F(OpenFileTest, IsRefusedWithTheOptionThatAnswers)
{
    EXPECT_EQ(Run(words_ + " --json"), 1);

    const Json reply = Json::parse(Out());
    EXPECT_EQ(reply["asked"], Json::parse(R"([{"question":"dateOrder","options":["mdy","dmy"],)"
                                          R"("proposed":"mdy","option":"--date-order"}])"));
    EXPECT_THAT(reply["refused"], HasSubstr("--date-order"));
    EXPECT_EQ(Rows(), "[]");
    EXPECT_EQ(Run(words_ + " --date-order dmy"), 0);
    EXPECT_EQ(Out(), "Imported 2 transactions\n");
}

TEST_F(OpenFileTest, ShowsItsFirstRowsAsTheyAreProposedAndWhatAnswers)
{
    EXPECT_EQ(Run(words_ + " --show"), 1);

    EXPECT_EQ(Out(),
              "Line  Date        Amount  Text  Identifier\n"
              "----  ----------  ------  ----  ----------  ----\n"
              "2     2006-03-05    1.25  Shop              read\n"
              "6     2006-03-06      -2  Inn               read\n"
              "\n"
              "Question   Options   Shown as  Answer with\n"
              "---------  --------  --------  ------------\n"
              "dateOrder  mdy, dmy  mdy       --date-order\n");
    EXPECT_THAT(Err(), HasSubstr("The file leaves open the order of day, month and year"));
    EXPECT_EQ(Rows(), "[]");

    EXPECT_EQ(Run(words_ + " --show --json"), 1);
    EXPECT_EQ(Json::parse(Out())["rows"][0],
              Json::parse(R"({"date":"2006-03-05","amount":"1.25","text":"Shop",)"
                          R"("identifier":"","state":"read"})"));
}

TEST_F(ImportFilesTest, RowsAreShownWithWhatCameOfThem)
{
    folder.Write("a.ofx", Ofx("B-1", Transaction("F1")));
    folder.Write("b.ofx", Ofx("B-1", Transaction("F1") + Transaction("F2", "-2")));
    Run("import" + File("a.ofx") + Home());

    EXPECT_EQ(Run("import" + File("b.ofx") + " --show" + Home()), 0);

    EXPECT_EQ(Out(),
              "Line  Date        Amount  Text  Identifier\n"
              "----  ----------  ------  ----  ----------  -----\n"
              "6     2006-03-05       1  Shop  F1          known\n"
              "7     2006-03-05      -2  Shop  F2          added\n"
              "Imported 1 transaction\n");

    folder.Write("c.ofx", Ofx("unknown", Transaction("F3")));
    EXPECT_EQ(Run("import" + File("c.ofx") + " --show" + Home()), 1);
    EXPECT_THAT(Out(), HasSubstr("F3          read\n"));
}

TEST_F(ImportFilesTest, AMappedAccountTakesOneNumberOnly)
{
    folder.Write("in/a.ofx", Ofx("new-1", Transaction("F1")));
    folder.Write("in/b.ofx", Ofx("new-1", Transaction("F2")));
    folder.Write("in/c.ofx", Ofx("new-2", Transaction("F3")));
    folder.Write("in/d.qif", Qif("5"));

    EXPECT_EQ(Run("import" + File("in") + " --map B-1" + Home()), 1);

    EXPECT_THAT(Out(), HasSubstr("c.ofx      0        0  The file's account is not known"));
    EXPECT_EQ(Rows(), R"([["new-1","1"],["new-1","1"],["new-1","5"]])");
}

TEST_F(ImportFilesTest, QifFilesShareTheAccountThatIsMadeForThem)
{
    folder.Write("in/a.qif", Qif("1"));
    folder.Write("in/b.qif", Qif("2"));

    EXPECT_EQ(Run("import" + File("in") + Home()), 1);
    EXPECT_EQ(Rows(), "[]");
    EXPECT_EQ(Run("import" + File("in") + " --create Card --type 'Credit Card'" + Home()), 0);
    EXPECT_EQ(Rows(), R"([["New Account","1"],["New Account","2"]])");
    EXPECT_EQ(Sql("SELECT Description, Type FROM Account WHERE AccountID = 'New Account'"),
              R"([["Card","Credit Card"]])");
}

/// A file that names no account goes into the one of the wanted name.
TEST_F(ImportFilesTest, NewAccountsHaveDistinctNames)
{
    folder.Write("in/a.ofx", Ofx("new-1", Transaction("F1")));
    folder.Write("in/b.ofx", Ofx("new-2", Transaction("F2")));
    folder.Write("in/c.qif", Qif("1"));
    folder.Write("in/d.qif", Qif("2"));

    EXPECT_EQ(Run("import" + File("in") + " --create Purse" + Home()), 0);

    EXPECT_EQ(Sql("SELECT AccountID, Description FROM Account ORDER BY Sequence"),
              R"x([["B-1","Checking"],["C-1","Purse"],["new-1","Purse (2)"],)x"
              R"x(["new-2","Purse (3)"]])x");
    EXPECT_EQ(Rows(), R"([["new-1","1"],["new-2","1"],["C-1","1"],["C-1","2"]])");
}

TEST_F(ImportFilesTest, AnUnknownOrAmbiguousAccountEndsTheCommand)
{
    folder.Write("a.qif", Qif("1"));
    Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('B-2', 'Purse', 'Bank')");

    EXPECT_EQ(Run("import" + File("a.qif") + " --qif-account Nobody" + Home()), 1);
    EXPECT_EQ(Err(), "clb: No such account: Nobody\n");
    EXPECT_EQ(Run("import" + File("a.qif") + " --qif-account C-1" + Home()), 1);
    EXPECT_EQ(Err(), "clb: More than one account is described as Purse\n");
    EXPECT_EQ(Rows(), "[]");
}

TEST_F(ImportFilesTest, TheOrderOfAQifFilesDatesMayBeGiven)
{
    folder.Write("a.qif", "!Type:Bank\r\nD23/10'06\r\nT1\r\n^\r\n");
    folder.Write("b.qif", "!Type:Bank\r\nD06/10/24\r\nT1\r\n^\r\n");
    const std::string to = " --qif-account B-1" + Home();

    EXPECT_EQ(Run("import" + File("a.qif") + " --date-order dmy" + to), 0);
    EXPECT_EQ(Run("import" + File("b.qif") + " --date-order ymd" + to), 0);
    EXPECT_EQ(Run("import" + File("a.qif") + " --date-order ydm" + to), 2);

    EXPECT_EQ(Sql("SELECT PostDate FROM Trans ORDER BY Sequence"),
              R"([["2006-10-23"],["2006-10-24"]])");
}

TEST_F(ImportFilesTest, APipeAndAFolderNamedLikeAStatementAreNotWaitedFor)
{
    fs::create_directories(folder.Path("in/b.ofx"));
    const std::string pipe = folder.Path("in/a.ofx");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);

    for (const char* trial : {"", " --dry-run"}) {
        EXPECT_EQ(Run("import" + File("in") + Home() + trial), 1);
        EXPECT_THAT(Out(), HasSubstr("Path/File access error: " + pipe + "\n1 file:"));
    }
}

/// Runs the program as the user "nobody", who owns the test's folder, if the tests run as root:
/// root may read and write everything.
class UnprivilegedImportTest : public ImportFilesTest {
protected:
    int RunAsNobody(const std::string& words)
    {
        if (geteuid() != 0)
            return Run(words);
        const std::string drop = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
        EXPECT_EQ(std::system(("chown -R 65534:65534 '" + folder.Path() + "'").c_str()), 0);
        const std::string command = drop + "'" CLB_PROGRAM "' " + words + " >'" +
                                    folder.Path("out") + "' 2>'" + folder.Path("err") + "'";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    void SetUp() override
    {
        if (RunAsNobody("--help") != 0)
            GTEST_SKIP() << "the program is not there for other users";
    }
};

TEST_F(UnprivilegedImportTest, AFileThatMayNotBeReadIsRefused)
{
    folder.Write("in/a.ofx", Ofx("B-1", Transaction("F1")));
    folder.Write("in/b.ofx", Ofx("B-1", Transaction("F2")));
    fs::permissions(folder.Path("in/a.ofx"), fs::perms::none);

    for (const char* trial : {" --dry-run", ""}) {
        EXPECT_EQ(RunAsNobody("import" + File("in") + Home() + trial), 1);
        EXPECT_THAT(Out(), HasSubstr("Path/File access error: " + folder.Path("in/a.ofx") + "\n"));
    }
    EXPECT_EQ(Sql("SELECT FITID FROM Trans"), R"([["F2"]])");
}

TEST_F(UnprivilegedImportTest, AFileThatWouldBeRepairedNeedsNoRightToWrite)
{
    const std::string text = Replace(Ofx("B-1", Transaction("F1")), "\r", "");
    folder.Write("in/a.ofx", text);
    fs::permissions(folder.Path("in"), fs::perms::owner_read | fs::perms::owner_exec);

    EXPECT_EQ(RunAsNobody("import" + File("in") + Home()), 0);

    fs::permissions(folder.Path("in"), fs::perms::owner_all);
    EXPECT_EQ(folder.Read("in/a.ofx"), text);
    EXPECT_EQ(Rows(), R"([["B-1","1"]])");
}

/// Files of one line of 100 MB, and the memory that the program takes for them.
class EndlessLineTest : public ImportFilesTest {
protected:
    // A tool that checks the program's memory needs memory itself.
#ifdef CLB_SANITIZED
    static constexpr bool kChecked = true;
#else
    static constexpr bool kChecked = false;
#endif
    static constexpr std::size_t kLine = 100'000'000;
    static constexpr std::int64_t kMebi = 1 << 20;

    /// Returns the exit code. Expects at most 8 times the file's size plus 64 MiB.
    int ImportLine(const std::string& name, const std::string& before, const std::string& after)
    {
        const std::string path = folder.Write(name, before + std::string(kLine, 'x') + after);
        const std::string command =
            std::string("'") + CLB_PROGRAM + "' import '" + path + "' --qif-account B-1" + Home();
        const auto size = static_cast<std::int64_t>(fs::file_size(path));
        const std::int64_t peak = PeakOf(command);
        if (!kChecked) {
            EXPECT_LT(peak, 8 * size + 64 * kMebi) << name;
        }
        fs::remove(path);
        return exitCode_;
    }

private:
    /// Runs in a separate process, whose only child is this command.
    std::int64_t PeakOf(const std::string& command)
    {
        const std::string measured =
            "{ " + command + "; } >'" + folder.Path("out") + "' 2>'" + folder.Path("err") + "'";
        const pid_t child = fork();
        if (child == 0) {
            execl("/bin/sh", "sh", "-c", measured.c_str(), nullptr);
            _exit(127);
        }
        int status = 0;
        rusage usage{};
        EXPECT_EQ(wait4(child, &status, 0, &usage), child);
        exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return std::int64_t{usage.ru_maxrss} * 1024;
    }

    int exitCode_ = 0;
};

TEST_F(EndlessLineTest, OfNothingIsNotAStatement)
{
    EXPECT_EQ(ImportLine("a.ofx", "", ""), 1);

    EXPECT_THAT(Err(), EndsWith("Invalid file format.\n"
                                "The file holds no table with dates and amounts.\n"));
    EXPECT_EQ(Rows(), "[]");
}

TEST_F(EndlessLineTest, InAStatementIsAText)
{
    const std::string opening = Ofx("B-1", "<STMTTRN><DTPOSTED>20060305<TRNAMT>1<FITID>1<NAME>");

    EXPECT_EQ(ImportLine("a.ofx", opening, "<MEMO>kept</STMTTRN>"), 0);

    EXPECT_EQ(Sql("SELECT PayeeName FROM Trans"), R"([["kept"]])");
}

TEST_F(EndlessLineTest, OfAnAmountIsBadData)
{
    const std::string opening =
        Ofx("B-1", Transaction("F1") + "<STMTTRN><DTPOSTED>20060305<FITID>1<TRNAMT>");

    EXPECT_EQ(ImportLine("a.ofx", opening, "</STMTTRN>"), 1);

    EXPECT_THAT(Err(), EndsWith("line 7 left out: it has no amount that can be read exactly: "
                                "20060305 " +
                                std::string(91, 'x') + "\n"));
    EXPECT_EQ(Sql("SELECT FITID FROM Trans"), R"([["F1"]])");
}

TEST_F(EndlessLineTest, InAQifFileIsAText)
{
    EXPECT_EQ(ImportLine("a.qif", "!Type:Bank\r\nD3/15/06\r\nT1\r\nP", "\r\n^\r\n"), 0);

    EXPECT_EQ(Rows(), R"([["B-1","1"]])");
}

TEST_F(EndlessLineTest, InAQifFileIsACategoryCutToItsLength)
{
    EXPECT_EQ(ImportLine("b.qif", "!Type:Bank\r\nD3/15/06\r\nT2\r\nL", "\r\n^\r\n"), 0);

    EXPECT_EQ(Sql("SELECT Category FROM Trans"), R"([[")" + std::string(50, 'x') + R"("]])");
}

}  // namespace
}  // namespace clb
