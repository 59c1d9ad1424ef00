// Memory runs out in the middle of a command of clb, including its start.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <fstream>

#include "cli/Commands.h"
#include "tests/allocation/Tries.h"
#include "tests/support/CheckingBook.h"

namespace clb {
namespace {

using testing::IsEmpty;

/// Runs the command as the program clb does; returns its exit code. begin: called after the
/// arguments are parsed, which is the work of a library.
int RunCommand(
    const std::vector<std::string>& words, const std::function<void()>& begin = [] {})
{
    int exitCode = 0;
    CLI::App app("clb", "clb");
    for (const auto add : {AddAccounts, AddImport, AddExport, AddMove, AddBackup, AddRestore,
                           AddCheck, AddSql, AddCopyBudget, AddHistory, AddUndo, AddRedo})
        add(app, exitCode);
    app.parse_complete_callback(begin);
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    app.parse(reversed);
    return exitCode;
}

class CommandAllocationTest : public testing::TestWithParam<Refusal> {
protected:
    CommandAllocationTest()
        : books_(CheckingBook(
              {"UPDATE Account SET CurrentBalance = -12.5",
               "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES "
               "(2006, 3, 'Food', 'Living', -90)"}))
    {
        ::setenv("TMPDIR", books_.Path().c_str(), 1);
    }
    ~CommandAllocationTest() override { ::unsetenv("TMPDIR"); }

    std::vector<std::string> Try(const std::string& command, std::vector<std::string> words = {},
                                 bool mayBeDone = false)
    {
        words.insert(words.begin(), command);
        words.insert(words.end(), {"--home", books_.Path()});
        return TryWords(words, mayBeDone);
    }
    /// mayBeDone: a reported failure is also right if everything was done and only the report
    /// failed, because repeating the command changes nothing.
    std::vector<std::string> TryWords(const std::vector<std::string>& words, bool mayBeDone,
                                      Counted counted = Counted::All)
    {
        books_.Keep();
        // A start takes many allocations, and each command begins with one.
        Tries tries(books_, GetParam(), GetParam() == Refusal::One ? 29 : 97, counted);
        if (tries.Next()) {
            const int exitCode = ExitCode(tries, words);
            FailingAllocations::End();
            if (tries.Undisturbed())
                tries.End(exitCode == 0 ? "" : "exit code " + std::to_string(exitCode));
            tries.End(tries.WrongInBook(exitCode == 0 || (mayBeDone && !tries.IsAsBefore())));
        }
        std::vector<std::string> problems = tries.Problems();
        if (tries.Failed() < 10)
            problems.push_back("next to nothing was tried");
        return problems;
    }
    static int ExitCode(const Tries& tries, const std::vector<std::string>& words)
    {
        try {
            // 2 is not a failure: a check has found something.
            const int exitCode = RunCommand(words, [&] { tries.Begin(); });
            return exitCode == 2 ? 0 : exitCode;
        } catch (const std::exception&) {
            return 1;
        }
    }

    BookFolder books_;
};

TEST_P(CommandAllocationTest, InAStart)
{
    EXPECT_THAT(Try("accounts"), IsEmpty());
}

TEST_P(CommandAllocationTest, InAnUpgrade)
{
    for (const char* statement :
         {"DROP TABLE _SchemaVersion", "CREATE TABLE _SchemaVersion (1 LONG)",
          "ALTER TABLE Account DROP COLUMN BudgetInclude"})
        RunCommand({"sql", books_.Path(), statement});
    EXPECT_THAT(Try("accounts", {}, true), IsEmpty());
}

TEST_P(CommandAllocationTest, InAnImport)
{
    const std::string file =
        books_.Write("march.ofx",
                     "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\n<OFX>\n<ACCTID>N-1\n"
                     "<STMTTRN><DTPOSTED>20060305<TRNAMT>-7<FITID>1<NAME>Shop</STMTTRN>\n");
    EXPECT_THAT(Try("import", {file, "--create", "New one"}, true), IsEmpty());
}

TEST_P(CommandAllocationTest, InAnExport)
{
    EXPECT_THAT(Try("export", {"Checking", books_.Path("out.ofx")}), IsEmpty());
}

TEST_P(CommandAllocationTest, InAMove)
{
    EXPECT_THAT(Try("move", {"1", "--by", "-1"}), IsEmpty());
}

TEST_P(CommandAllocationTest, InABackup)
{
    EXPECT_THAT(Try("backup"), IsEmpty());
}

TEST_P(CommandAllocationTest, InARestore)
{
    const std::string copy = books_.Write("copy.mdb", books_.Files().at("db/clb.mdb"));
    RunCommand({"sql", books_.Path(), "UPDATE Account SET Description = 'Changed since'"});
    EXPECT_THAT(Try("restore", {copy}, true), IsEmpty());
}

TEST_P(CommandAllocationTest, InACheckThatRepairs)
{
    RunCommand({"sql", books_.Path(), "UPDATE Account SET CurrentBalance = 1"});
    EXPECT_THAT(Try("check", {"--repair"}, true), IsEmpty());
}

TEST_P(CommandAllocationTest, InAnUndo)
{
    books_.Command("UPDATE Trans SET Category = 'Fun'");
    EXPECT_THAT(Try("undo"), IsEmpty());
}

TEST_P(CommandAllocationTest, InARedo)
{
    books_.Command("DELETE FROM Trans");
    books_.UndoCommand();
    EXPECT_THAT(Try("redo"), IsEmpty());
}

TEST_P(CommandAllocationTest, InListingTheHistory)
{
    books_.Command("UPDATE Trans SET Category = 'Fun'");
    EXPECT_THAT(Try("history", {"--step", "1"}), IsEmpty());
}

/// Its reply is JSON, which allocates memory in destructors.
TEST_P(CommandAllocationTest, InAStatement)
{
    EXPECT_THAT(TryWords({"sql", books_.Path(), "UPDATE Trans SET Category = 'Fun'"}, false,
                         Counted::Storage),
                IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Once, CommandAllocationTest, testing::Values(Refusal::One));
INSTANTIATE_TEST_SUITE_P(ForGood, CommandAllocationTest, testing::Values(Refusal::All));

}  // namespace
}  // namespace clb
