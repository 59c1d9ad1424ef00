// clb history, undo and redo, and the steps that the other commands make.
#include <gmock/gmock.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "CommandFixture.h"
#include "base/Text.h"
#include "platform/SystemClock.h"

namespace clb {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class HistoryCommandsTest : public CommandFixture {
protected:
    HistoryCommandsTest() { EXPECT_EQ(Run("new " + Books()), 0); }

    void AddChecking()
    {
        Sql("INSERT INTO Account (AccountID, Description, Type, CurrentBalance) VALUES ('C1', "
            "'Checking', 'Bank', 0)");
    }
    /// Does the same as another program.
    void Elsewhere(const std::string& sql)
    {
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(folder.Path("books/db/clb.mdb").c_str(), &other), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(other, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(other);
        sqlite3_close(other);
    }
    Json Steps(const std::string& words = "")
    {
        EXPECT_EQ(Run("history --json" + words + Home()), 0) << Err();
        return Json::parse(Out())["steps"];
    }
    /// The names of the steps, the newest first; those that were undone in parentheses.
    std::string Names()
    {
        std::string names;
        for (const Json& step : Steps()) {
            const auto what = step["what"].get<std::string>();
            names +=
                (names.empty() ? "" : ", ") + (step["undone"] == true ? "(" + what + ")" : what);
        }
        return names;
    }
    std::string NewestName()
    {
        const Json steps = Steps();
        return steps.empty() ? "" : steps.front()["what"].get<std::string>();
    }
    /// Runs a command that makes one step, undoes it and redoes it, and compares a query's rows.
    void ExpectStep(const std::string& words, const std::string& name, const std::string& query)
    {
        const std::size_t steps = Steps().size();
        const std::string before = Sql(query);
        EXPECT_EQ(Run(words), 0) << words << ": " << Err();
        const std::string after = Sql(query);
        EXPECT_NE(before, after) << words;
        EXPECT_EQ(Steps().size(), steps + 1) << words;
        EXPECT_EQ(NewestName(), name);
        EXPECT_EQ(Run("undo" + Home()), 0) << words << ": " << Err();
        EXPECT_EQ(Sql(query), before) << words;
        EXPECT_EQ(Run("redo" + Home()), 0) << words << ": " << Err();
        EXPECT_EQ(Sql(query), after) << words;
    }
};

TEST_F(HistoryCommandsTest, EachCommandThatWritesIsOneStep)
{
    const std::string rows =
        "SELECT AccountID, Description, Amount, Year, Period, Category FROM Trans";
    ExpectStep("sql " + Books() +
                   " \"INSERT INTO Account (AccountID, Description, Type) VALUES ('C1', "
                   "'Checking', 'Bank')\"",
               "SQL", "SELECT * FROM Account");
    ExpectStep("import " + Statement("C1", "-4.50") + Home(), "Import of march.ofx", rows);
    ExpectStep("import " + Statement("C2", "-8") + Home() + " --create Other",
               "Import of march.ofx", "SELECT AccountID, CurrentBalance FROM Account");
    ExpectStep("split 1 -2" + Home(), "Split Transaction", rows);
    ExpectStep("move 1 --by 1" + Home(), "Move To Next Month", rows);
    ExpectStep("move 1 --by -1" + Home(), "Move To Previous Month", rows);
    ExpectStep("copy-budget 2006-05" + Home(), "Copy Budget From Previous Month",
               "SELECT Year, Period, Category FROM Budget");
    ExpectStep("options --no-count C1 --no-count C2" + Home(), "Options",
               "SELECT AccountID, BudgetInclude FROM Account");
}

TEST_F(HistoryCommandsTest, SeveralFilesAreAStepEach)
{
    AddChecking();
    const std::string march = Statement("C1", "-4.50");
    folder.Write("april.ofx", Replace(folder.Read("march.ofx"), "<FITID>1", "<FITID>2"));

    ASSERT_EQ(Run("import '" + folder.Path("april.ofx") + "' " + march + Home()), 0) << Err();

    EXPECT_EQ(Names(), "Import of march.ofx, Import of april.ofx, SQL");
}

TEST_F(HistoryCommandsTest, WhatChangesNothingIsNoStep)
{
    AddChecking();
    for (const std::string& words :
         {"import " + Statement("C1", "-4.50") + " --dry-run", std::string("accounts"),
          std::string("options"), std::string("check --repair --accept"),
          "backup '" + folder.Path("copy.mdb") + "'"}) {
        EXPECT_EQ(Run(words + Home()), 0) << words << ": " << Err();
        EXPECT_EQ(Names(), "SQL") << words;
    }
    EXPECT_EQ(Run("sql " + Books() + " \"UPDATE Account SET NoColumn = 1\""), 1);
    EXPECT_EQ(Run("split 99" + Home()), 1);
    EXPECT_EQ(Names(), "SQL");
}

TEST_F(HistoryCommandsTest, AnEmptyBookAndTheHouseholdHaveNoHistory)
{
    EXPECT_EQ(Steps(), Json::array());
    ASSERT_EQ(Run("demo '" + folder.Path("demo") + "'"), 0);
    EXPECT_EQ(Run("history --json --home '" + folder.Path("demo") + "'"), 0);
    EXPECT_EQ(Out(), "{\"steps\":[]}\n");
}

TEST_F(HistoryCommandsTest, ABackupBringsItsOwnHistory)
{
    AddChecking();
    ASSERT_EQ(Run("backup '" + folder.Path("copy.mdb") + "'" + Home()), 0);
    Sql("UPDATE Account SET Description = 'Giro'");

    ASSERT_EQ(Run("restore '" + folder.Path("copy.mdb") + "'" + Home()), 0) << Err();

    EXPECT_EQ(Names(), "SQL");
    EXPECT_EQ(Run("undo" + Home()), 0);
    EXPECT_EQ(Sql("SELECT * FROM Account"), "[]");
}

TEST_F(HistoryCommandsTest, ARepairIsUndoneAndDoneAgain)
{
    AddChecking();
    Sql("UPDATE Account SET CurrentBalance = 5");
    ExpectStep("check --repair --accept" + Home(), "Repair", "SELECT CurrentBalance FROM Account");
}

TEST_F(HistoryCommandsTest, TheRepliesHaveTheirKeys)
{
    AddChecking();
    Sql("UPDATE Account SET Description = 'Giro'");
    const std::string today = SystemClock().Now().ToIso().substr(0, 10);

    const Json steps = Steps(" --limit 1");
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_THAT(steps[0]["at"].get<std::string>(), StartsWith(today));
    Json step = steps[0];
    step.erase("at");
    EXPECT_EQ(step, Json::parse(R"({"step":2,"what":"SQL","rows":1,"undone":false})"));

    const Json shown = Steps(" --step 1");
    ASSERT_EQ(shown.size(), 1U);
    const Json& change = shown[0]["changes"][0];
    EXPECT_EQ(change["table"], "Account");
    EXPECT_EQ(change["row"], 1);
    EXPECT_EQ(change["was"], nullptr);
    EXPECT_EQ(change["is"]["Description"], "Checking");
    EXPECT_EQ(Json::parse(Out())["changes"], shown[0]["changes"]);

    EXPECT_EQ(Run("undo --json" + Home()), 0);
    EXPECT_EQ(Json::parse(Out())["undone"][0]["step"], 2);
    EXPECT_EQ(Json::parse(Out())["undone"][0]["undone"], true);
    EXPECT_EQ(Run("redo --json" + Home()), 0);
    EXPECT_EQ(Json::parse(Out())["redone"][0]["step"], 2);
    EXPECT_EQ(Json::parse(Out())["redone"][0]["undone"], false);
}

// Symptom: the list was refused because the file could not be written.
TEST_F(HistoryCommandsTest, ABookThatCannotBeWrittenIsListed)
{
    AddChecking();
    const std::string db = folder.Path("books/db");
    std::filesystem::permissions(folder.Path(""), std::filesystem::perms(0755));
    std::filesystem::permissions(folder.Path("books"), std::filesystem::perms(0755));
    std::filesystem::permissions(db + "/clb.mdb", std::filesystem::perms(0444));
    std::filesystem::permissions(db, std::filesystem::perms(0555));
    // The superuser may write everywhere.
    const std::string user =
        geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    const std::string out = folder.Write("listed", "");
    const std::string program = user + "'" CLB_PROGRAM "' ";
    EXPECT_EQ(std::system((program + "history --json" + Home() + " >" + out).c_str()), 0);
    EXPECT_EQ(Json::parse(folder.Read("listed"))["steps"].size(), 1U);
    EXPECT_EQ(std::system((program + "history --step 1" + Home() + " >" + out).c_str()), 0);
    EXPECT_THAT(folder.Read("listed"), HasSubstr("Description: Checking"));
    EXPECT_NE(std::system((program + "undo" + Home() + " 2>" + out).c_str()), 0);
    std::filesystem::permissions(db, std::filesystem::perms(0755));
}

TEST_F(HistoryCommandsTest, MoreStepsThanThereAreTakeAll)
{
    AddChecking();
    Sql("UPDATE Account SET Description = 'Giro'");

    EXPECT_EQ(Run("undo --steps 99999999999" + Home()), 0) << Err();
    EXPECT_EQ(Names(), "(SQL), (SQL)");
    EXPECT_EQ(Run("undo --json" + Home()), 1);
    EXPECT_EQ(Out(), "{\"undone\":[]}\n");
    EXPECT_EQ(Err(), "There is nothing to undo.\n");
    EXPECT_EQ(Run("redo --steps 3" + Home()), 0);
    EXPECT_EQ(Run("redo --json" + Home()), 1);
    EXPECT_EQ(Out(), "{\"redone\":[]}\n");
    EXPECT_EQ(Err(), "There is nothing to redo.\n");
}

TEST_F(HistoryCommandsTest, WrongNumbersAreWrongUsageAndAMissingStepIsRefused)
{
    for (const char* words :
         {"undo --steps 0", "undo --steps -1", "redo --steps x", "history --limit 0",
          "history --step 0", "history --step 1.5", "history --limit 99999999999999999999"}) {
        EXPECT_EQ(Run(words + Home()), 2) << words;
        // Symptom: the range was a number of 300 digits.
        EXPECT_THAT(Err(), HasSubstr("is not a whole number from 1 to 1000000000000")) << words;
    }
    EXPECT_EQ(Run("history --step 7" + Home()), 1);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Err(), "clb: The history has no step 7.\n");
}

TEST_F(HistoryCommandsTest, ARowThatAnotherProgramHasChangedIsRefused)
{
    AddChecking();
    Sql("UPDATE Account SET Description = 'Giro'");
    Elsewhere("UPDATE Account SET Description = 'Foreign'");

    EXPECT_EQ(Run("undo --steps 2 --json" + Home()), 1);

    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Err(),
              "clb: 'SQL' cannot be undone: the account 'Foreign' was changed since. Nothing was "
              "changed.\n");
    EXPECT_EQ(Sql("SELECT Description FROM Account"), R"([["Foreign"]])");
    EXPECT_EQ(Names(), "SQL, SQL");
}

TEST_F(HistoryCommandsTest, AChangeOfTablesEndsTheHistoryAndUndoSaysSo)
{
    for (const char* statement :
         {"CREATE TABLE Notes (Text TEXT)", "ALTER TABLE Notes ADD COLUMN More TEXT",
          "CREATE UNIQUE INDEX ByText ON Notes (Text)", "DROP INDEX ByText ON Notes",
          "DROP TABLE Notes", "CREATE TABLE CvNotes (Text TEXT)",
          "ALTER TABLE CvNotes ADD COLUMN More TEXT", "DROP TABLE CvNotes"}) {
        Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('C', 'C', 'Bank')");
        Sql(statement);

        EXPECT_EQ(Run("undo" + Home()), 1) << statement;
        EXPECT_THAT(Err(), StartsWith("Tables were changed at "));
        EXPECT_THAT(Err(), HasSubstr("What was done before that cannot be undone."));
        EXPECT_EQ(Steps(), Json::array());
    }
}

TEST_F(HistoryCommandsTest, ATableThatAnotherProgramHasRemovedIsNamed)
{
    Sql("CREATE TABLE Notes (Text TEXT)");
    Sql("INSERT INTO Notes (Text) VALUES ('x')");
    Elsewhere("DROP TABLE Notes");

    EXPECT_EQ(Run("undo" + Home()), 1);
    EXPECT_EQ(Err(),
              "clb: 'SQL' cannot be undone: the table Notes is no longer there. Nothing was "
              "changed.\n");
}

TEST_F(HistoryCommandsTest, TriggersOfTheFileDoNotRunTwice)
{
    Elsewhere(
        "CREATE TABLE Notes (Text TEXT UNIQUE, Raw BLOB); CREATE TABLE Log (Text TEXT);"
        "CREATE TRIGGER Noted AFTER DELETE ON Notes BEGIN INSERT INTO Log VALUES (old.Text); END;"
        "INSERT INTO Notes VALUES ('ü🎉', x'00ff'), (NULL, NULL)");
    const std::string notes = "SELECT * FROM Log";
    Sql("DELETE FROM Notes");
    EXPECT_EQ(Sql(notes), R"([["ü🎉"],[null]])");

    EXPECT_EQ(Run("undo" + Home()), 0) << Err();
    EXPECT_EQ(Sql(notes), "[]");
    EXPECT_EQ(Sql("SELECT Text FROM Notes"), R"([["ü🎉"],[null]])");
    EXPECT_EQ(Run("redo" + Home()), 0) << Err();
    EXPECT_EQ(Sql(notes), R"([["ü🎉"],[null]])");
}

// Rows without identities cannot be put back.
TEST_F(HistoryCommandsTest, AWriteToATableWithoutIdentitiesEndsTheHistory)
{
    Elsewhere("CREATE TABLE Words (Word TEXT PRIMARY KEY, Hits) WITHOUT ROWID");
    AddChecking();
    Sql("INSERT INTO Words (Word) VALUES ('a')");
    EXPECT_EQ(Sql("SELECT Word FROM Words ORDER BY Word"), R"([["a"]])");

    EXPECT_EQ(Run("undo" + Home()), 1);
    EXPECT_EQ(Names(), "");
}

TEST_F(HistoryCommandsTest, ADamagedHistoryIsReportedAndRepaired)
{
    AddChecking();
    Sql("UPDATE Account SET Description = 'Giro'");
    Elsewhere("UPDATE CvChange SET Data = x'ff' WHERE Step = 1");

    EXPECT_EQ(Run("history --step 1" + Home()), 1);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Err(), "clb: The history's step 1 ('SQL') is damaged.\n");
    EXPECT_EQ(Run("check --json" + Home()), 2);
    EXPECT_EQ(Json::parse(Out())["findings"][0]["kind"], "history");
    EXPECT_EQ(Json::parse(Out())["findings"][0]["row"], 1);
    EXPECT_EQ(Run("check --repair" + Home()), 0);
    EXPECT_THAT(Out(), HasSubstr("\nSteps dropped from the history: 1\n"));
    EXPECT_EQ(Run("undo --steps 9" + Home()), 0);
    EXPECT_EQ(Sql("SELECT Description FROM Account"), R"([["Checking"]])");
}

TEST_F(HistoryCommandsTest, WithoutABookNothingIsShown)
{
    for (const char* command : {"history", "undo", "redo"}) {
        EXPECT_EQ(Run(std::string(command) + " --json --home '" + folder.Path("none") + "'"), 1);
        EXPECT_EQ(Out(), "");
        EXPECT_THAT(Err(), HasSubstr("does not exist."));
    }
}

TEST_F(HistoryCommandsTest, NamesCannotSendCommandsToTheTerminal)
{
    AddChecking();
    Elsewhere(
        "UPDATE CvStep SET What = 'a' || char(10) || char(27) || '[2J', At = char(27) || '[2J'");

    EXPECT_EQ(Run("history" + Home()), 0);
    EXPECT_THAT(Out(), Not(HasSubstr("\x1b")));
    EXPECT_EQ(Run("undo" + Home()), 0);
    EXPECT_EQ(Out(), "Undone: a  [2J of  [2J\n");
}

}  // namespace
}  // namespace clb
