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
        return "!Type:Bank\r\nD3/5/06\r\nT" + amount + "\r\n^\r\n";
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

TEST_F(ImportFilesTest, AProgramFolderIsNoFolderOfStatements)
{
    folder.Write("books/march.ofx", Ofx("B-1", Transaction("F1")));

    EXPECT_EQ(Run("import " + Books()), 2);
    EXPECT_THAT(Err(), HasSubstr("is a program folder"));
    EXPECT_THAT(Err(), HasSubstr("--home"));
    EXPECT_EQ(Run("import" + File("books/march.ofx") + " " + Books() + Home()), 2);
    EXPECT_EQ(Rows(), "[]");
}

TEST_F(ImportFilesTest, FoldersAreReadInOrderOfNameAndReportedInATable)
{
    folder.Write("in/a.OFX", Ofx("B-1", Transaction("F1") + Transaction("F2")));
    folder.Write("in/b/c.qfx", Ofx("B-1", Transaction("F2") + Transaction("F3")));
    folder.Write("in/d.QIF", Qif("-7"));
    folder.Write("in/e.ofc", "no statement\r\n");
    folder.Write("in/notes.txt", "not looked at");
    const std::string last = folder.Write("last", Ofx("C-1", Transaction("F9")));

    EXPECT_EQ(Run("import" + File("in") + File("last") + " --qif-account Purse" + Home()), 1);

    const std::string in = folder.Path("in");
    const std::string blanks(in.size() + 8 - last.size(), ' ');
    const std::string more(in.size() + 2, ' ');
    EXPECT_EQ(Out(),
              "File" + more + "    Added  Skipped  Refused\n" + std::string(in.size() + 8, '-') +
                  "  -----  -------  --------------------\n" + in + "/a.OFX        2        0\n" +
                  in + "/b/c.qfx      1        1\n" + in + "/d.QIF        1        0\n" + in +
                  "/e.ofc        0        0  Invalid file format.\n" + last + blanks +
                  "      1        0\n"
                  "5 files: 5 added, 1 skipped, 1 refused\n");
    EXPECT_EQ(Err(), "");
    EXPECT_EQ(Rows(), R"([["B-1","1"],["B-1","1"],["B-1","1"],["C-1","-7"],["C-1","1"]])");
}

TEST_F(ImportFilesTest, AFileThatFailsDoesNotStopTheOthers)
{
    folder.Write("in/a.ofx", Ofx("B-1", Transaction("F1") + Transaction("F2", "much")));
    folder.Write("in/b.ofx", Ofx("unknown", Transaction("F1")));
    folder.Write("in/c.qif", "!Type:Bank\r\nDsoon\r\nD3/5/06\r\nT5\r\n^\r\n");
    folder.Write("in/d.ofx", Ofx("B-1", Transaction("F4")));

    EXPECT_EQ(Run("import" + File("in") + File("none.ofx") + " --qif-account B-1 --json" + Home()),
              1);

    const Json files = Json::parse(Out())["files"];
    ASSERT_EQ(files.size(), 5U);
    EXPECT_EQ(files[0]["refused"], "Invalid data was found while importing:\n<TRNAMT>");
    EXPECT_EQ(files[0]["imported"], 1);
    EXPECT_NE(files[1]["refused"], nullptr);
    EXPECT_EQ(files[2]["refused"],
              "Invalid data was found while importing. The following lines were skipped:\nDsoon");
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
    EXPECT_THAT(trial, HasSubstr("d.ofx      0        0  File already exists\n"));
    EXPECT_EQ(Run(words + Home()), 1);
    EXPECT_EQ(Out(), Replace(trial, "; a dry run, nothing was changed", ""));
    EXPECT_NE(Files("in"), statements);
}

TEST_F(ImportFilesTest, ATrialNeedsTheFolderThatIsNamed)
{
    folder.Write("a.ofx", Ofx("B-1", Transaction("F1")));

    EXPECT_EQ(Run("import" + File("a.ofx") + " --dry-run --home" + File("nowhere")), 1);

    EXPECT_EQ(Err(), "clb: The database file '" + folder.Path("nowhere/db/clb.mdb") +
                         "' does not exist.\n");
    EXPECT_FALSE(folder.Holds("nowhere"));
}

TEST_F(ImportFilesTest, WhatTheRulesLeaveOutIsCounted)
{
    folder.Write("in/a.ofx", Ofx("B-1", Transaction("F1") + "<STMTTRN></STMTTRN>" +
                                            Transaction("F2") + Transaction("F3")));
    folder.Write("in/b.ofx", Ofx("B-1", Transaction("G1") + "<ACCTID>C-1" + Transaction("G2")));
    folder.Write("in/c.ofx", Ofx("B-1", Transaction("") + Transaction("") + Transaction("")));
    folder.Write("in/d.qif", "!Type:Bank\nD3/5/06\nT5\n^\r\nT6\r\n^\r\n");

    EXPECT_EQ(Run("import" + File("in") + " --map Checking" + Home()), 0);

    for (const char* warning :
         {"2 transactions left out after an empty transaction",
          "1 further account: all transactions go into the file's first account",
          "3 transactions without an identifier: all but an account's first one count as",
          "2 lines left out: mixed line ends"})
        EXPECT_THAT(Out(), HasSubstr(std::string("  Warning: ") + warning));
    EXPECT_EQ(Sql("SELECT COUNT(1) AS N FROM Trans"), "[[5]]");
}

TEST_F(ImportFilesTest, EverySkippedLineIsListed)
{
    const std::string text = "!Type:Bank\r\nDsoon\r\nDlater\r\nDnever\r\n^\r\n";
    folder.Write("in/a.qif", text);
    folder.Write("b.qif", text);

    EXPECT_EQ(Run("import" + File("in") + " --qif-account B-1" + Home()), 1);
    EXPECT_THAT(Out(), HasSubstr("lines were skipped:\n  Dsoon\n  Dlater\n  Dnever\n"));

    EXPECT_EQ(Run("import" + File("b.qif") + " --qif-account B-1" + Home()), 1);
    EXPECT_THAT(Err(), HasSubstr("lines were skipped:\nDsoon\nDlater\nDnever\n"));

    folder.Write("c.qif", "!Type:Bank\r\nD" + std::string(300, 'x') + "\r\n^\r\n");
    EXPECT_EQ(Run("import" + File("c.qif") + " --qif-account B-1" + Home()), 1);
    EXPECT_THAT(Err(), EndsWith("skipped:\nD" + std::string(199, 'x') + "...\n"));
}

/// The repair cuts the file before the account turns out to be missing.
TEST_F(ImportFilesTest, LinesThatTheRepairDropsAreReportedUntilTheFileIsReadWhole)
{
    const std::string file = File("a.ofx");
    folder.Write("a.ofx", "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\n<OFX>\n<ACCTID>new\n" +
                              Transaction("F1") + "\r\n" + Transaction("F2") + "\r\n</OFX>\r\n");
    const std::string warning =
        "Warning: 2 lines left out: mixed line ends, the repair keeps the "
        "file up to its first carriage return; all of it is in " +
        folder.Path("a.ofx.org") + "\n";

    EXPECT_EQ(Run("import" + file + " --dry-run" + Home()), 1);
    EXPECT_THAT(Err(), HasSubstr("keeps the file up to its first carriage return\n"));
    EXPECT_FALSE(folder.Holds("a.ofx.org"));
    EXPECT_EQ(Run("import" + file + Home()), 1);
    EXPECT_THAT(Err(), HasSubstr(warning));
    EXPECT_EQ(Run("import" + file + " --create New" + Home()), 0);
    EXPECT_EQ(Err(), warning);
    EXPECT_EQ(Out(), "Imported 1 transaction\n");

    folder.Write("a.ofx", Ofx("new", Transaction("F1") + Transaction("F2")));
    EXPECT_EQ(Run("import" + file + Home()), 0);
    EXPECT_EQ(Err(), "");
    fs::permissions(folder.Path("a.ofx.org"), fs::perms::none);
    EXPECT_EQ(Run("import" + file + Home()), 0);
    EXPECT_EQ(Err(), "");
}

TEST_F(ImportFilesTest, OneFilesWarningsGoToStandardError)
{
    folder.Write("a.ofx", Ofx("B-1", Transaction("") + Transaction("")));

    EXPECT_EQ(Run("import" + File("a.ofx") + Home()), 0);

    EXPECT_EQ(Out(), "Imported 1 transaction\n");
    EXPECT_THAT(Err(), HasSubstr("Warning: 2 transactions without an identifier"));
    EXPECT_EQ(Run("import" + File("a.ofx") + " --json" + Home()), 0);
    EXPECT_EQ(Json::parse(Out())["leftOut"]["withoutIdentifier"], 2);
    EXPECT_EQ(Json::parse(Out())["skipped"], 2);
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

TEST_F(ImportFilesTest, NewAccountsHaveDistinctNames)
{
    folder.Write("in/a.ofx", Ofx("new-1", Transaction("F1")));
    folder.Write("in/b.ofx", Ofx("new-2", Transaction("F2")));
    folder.Write("in/c.qif", Qif("1"));
    folder.Write("in/d.qif", Qif("2"));

    EXPECT_EQ(Run("import" + File("in") + " --create Purse" + Home()), 0);

    EXPECT_EQ(Sql("SELECT AccountID, Description FROM Account ORDER BY Sequence"),
              R"x([["B-1","Checking"],["C-1","Purse"],["new-1","Purse (2)"],)x"
              R"x(["new-2","Purse (3)"],["New Account","Purse (4)"]])x");
    EXPECT_EQ(Rows(), R"([["new-1","1"],["new-2","1"],["New Account","1"],["New Account","2"]])");
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

TEST_F(UnprivilegedImportTest, AFolderThatCannotTakeTheRepairedFileIsReported)
{
    const std::string text = Replace(Ofx("B-1", Transaction("F1")), "\r", "");
    const std::string path = folder.Write("in/a.ofx", text);
    fs::permissions(folder.Path("in"), fs::perms::owner_read | fs::perms::owner_exec);

    EXPECT_EQ(RunAsNobody("import" + File("in") + Home()), 1);

    EXPECT_THAT(Out(), HasSubstr("Path/File access error: " + path + "\n"));
    fs::permissions(folder.Path("in"), fs::perms::owner_all);
    EXPECT_EQ(folder.Read("in/a.ofx"), text);
    EXPECT_EQ(Rows(), "[]");
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

    EXPECT_THAT(Err(), EndsWith("Invalid file format.\n"));
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

    EXPECT_THAT(Err(), EndsWith("Invalid data was found while importing:\n<TRNAMT>\n"));
    EXPECT_EQ(Sql("SELECT FITID FROM Trans"), R"([["F1"]])");
}

TEST_F(EndlessLineTest, InAQifFileIsCutOrListed)
{
    EXPECT_EQ(ImportLine("a.qif", "!Type:Bank\r\nD3/5/06\r\nT1\r\nP", "\r\n^\r\n"), 0);
    EXPECT_EQ(Sql("SELECT Description FROM Trans"), R"([[")" + std::string(50, 'x') + R"("]])");

    EXPECT_EQ(ImportLine("b.qif", "!Type:Bank\r\nD3/5/06\r\nT2\r\nL", "\r\n^\r\n"), 1);
    EXPECT_THAT(
        Err(),
        EndsWith("Invalid data was found while importing. The following lines were skipped:\n"
                 "^\n"));
    EXPECT_EQ(Rows(), R"([["B-1","1"]])");
}

}  // namespace
}  // namespace clb
