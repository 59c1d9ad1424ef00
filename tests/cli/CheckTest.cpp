#include <sstream>

#include "CommandFixture.h"
#include "engine/rows/Connection.h"
#include "platform/SystemClock.h"

namespace clb {
namespace {

class CheckTest : public CommandFixture {
protected:
    CheckTest()
    {
        EXPECT_EQ(Run("new " + Books()), 0);
        Sql("INSERT INTO Account (AccountID, Description, Type, CurrentBalance) VALUES ('C1', "
            "'Checking', 'Bank', -4.5)");
        Sql("INSERT INTO Budget (Year, Period, Category, CategoryGroup) VALUES (2006, 3, 'Food', "
            "'(none)')");
        AddTransaction("1", "C1", "-4.5", "3", "Food");
    }
    void AddTransaction(const std::string& number, const std::string& account,
                        const std::string& amount, const std::string& period,
                        const std::string& category)
    {
        Sql("INSERT INTO Trans (Sequence, AccountID, Amount, Year, Period, Category) VALUES (" +
            number + ", '" + account + "', " + amount + ", 2006, " + period + ", '" + category +
            "')");
    }
    /// Runs a check and returns its findings, without the first lines and without what they mean.
    std::string Findings(int exitCode, const std::string& words = "")
    {
        EXPECT_EQ(Run("check" + words + Home()), exitCode) << Err();
        const std::string head = folder.Path("books/db/clb.mdb") + "\nSchema version 2\n";
        EXPECT_EQ(Out().substr(0, head.size()), head);
        std::istringstream lines(Out().substr(std::min(head.size(), Out().size())));
        std::string findings;
        for (std::string line; std::getline(lines, line);)
            if (!line.starts_with("   "))
                findings += line + "\n";
        return findings;
    }
    static std::string Today() { return SystemClock().Now().ToIso().substr(0, 10); }
    /// The balances in a backup of today.
    std::string BalancesBefore(const std::string& what)
    {
        folder.Write("former/db/clb.mdb",
                     folder.Read("books/db/backup/clb-" + Today() + "-before-" + what + ".mdb"));
        EXPECT_EQ(Run("sql '" + folder.Path("former") + "' 'SELECT CurrentBalance FROM Account'"),
                  0);
        return ToLine(Json::parse(Out())["rows"]);
    }
    std::string BackupBefore(const std::string& what)
    {
        return folder.Path("books/db/backup/clb-" + Today() + "-before-" + what + ".mdb");
    }
};

TEST_F(CheckTest, AGoodDatabaseIsInOrderAndUntouched)
{
    const std::string before = folder.Read("books/db/clb.mdb");

    EXPECT_EQ(Findings(0), "Everything is in order\n");

    EXPECT_TRUE(folder.Read("books/db/clb.mdb") == before);
}

TEST_F(CheckTest, TheHouseholdOfTheDemoIsInOrder)
{
    ASSERT_EQ(Run("demo '" + folder.Path("demo") + "'"), 0);

    EXPECT_EQ(Run("check --home '" + folder.Path("demo") + "'"), 0) << Out();
}

TEST_F(CheckTest, EachFindingIsReportedWithItsNumbersAndPlace)
{
    AddTransaction("5", "X9", "1", "3", "Food");
    AddTransaction("7", "X9", "1", "3", "Food");
    AddTransaction("8", "C1", "-1", "4", "Rent");
    AddTransaction("9", "C1", "-1", "13", "Food");
    Sql("INSERT INTO Loan (Description, AccountID) VALUES ('Car', 'L1')");
    Sql("INSERT INTO Budget (Year, Period, Category) VALUES (2006, 13, 'Food')");

    EXPECT_EQ(Findings(2),
              "1. Trans: 2 rows (numbers 5 to 7) of the account 'X9', which does not exist.\n"
              "2. Loan: 1 row (number 1) of the account 'L1', which does not exist.\n"
              "3. Account 'C1' (Checking): the stored balance is -4.5, its rows add up to -6.5.\n"
              "4. Trans: 1 row (number 8) with the category 'Rent', which has no budget line in "
              "2006-04.\n"
              "5. Trans: number 9 is booked to 2006-13, which is no month.\n"
              "6. Budget: number 2 is booked to 2006-13, which is no month.\n");
}

TEST_F(CheckTest, EachFindingSaysWhatItMeansAndWhetherARepairFixesIt)
{
    AddTransaction("9", "C1", "-1", "13", "Food");

    EXPECT_EQ(Run("check" + Home()), 2);
    EXPECT_NE(
        Out().find("its rows add up to -5.5.\n   Something other than this program has changed, "
                   "added or deleted rows."),
        std::string::npos)
        << Out();
    EXPECT_NE(Out().find("\n   --repair mends it.\n"), std::string::npos);

    EXPECT_EQ(Run("check --json" + Home()), 2);
    const Json findings = Json::parse(Out())["findings"];
    EXPECT_EQ(findings[0]["kind"], "balance");
    EXPECT_EQ(findings[0]["row"], 1);
    EXPECT_EQ(findings[0]["column"], "CurrentBalance");
    EXPECT_EQ(findings[0]["repairable"], true);
    EXPECT_EQ(findings.back()["kind"], "month");
    EXPECT_EQ(findings.back()["row"], 2);
    EXPECT_EQ(findings.back()["sequence"], 9);
    EXPECT_EQ(findings.back()["meaning"], "The row shows in no month.");
    EXPECT_EQ(findings.back()["repairable"], false);
}

TEST_F(CheckTest, ARepairMakesABackupAndFixesWhatItCanExactly)
{
    AddTransaction("8", "C1", "-1", "4", "Rent");
    AddTransaction("9", "X9", "-1", "3", "Food");
    Sql("INSERT INTO Account (AccountID, Description, Type, OpeningBalance, CurrentBalance) "
        "VALUES ('H1', 'Shares', 'Investment', 3, 3)");
    Sql("INSERT INTO Investment (AccountID, Total) VALUES ('H1', 12.25)");
    const std::string rows = Sql("SELECT * FROM Trans");

    EXPECT_EQ(Findings(2, " --repair --accept"),
              "The file before is kept as " + BackupBefore("repair") +
                  "\nBalances stored anew: 2\nBudget lines made: 1\n"
                  "Noticed balances taken note of: 2\n"
                  "1. Trans: 1 row (number 9) of the account 'X9', which does not exist.\n");

    EXPECT_EQ(Sql("SELECT AccountID, OpeningBalance, CurrentBalance FROM Account"),
              R"([["C1","0","-5.5"],["H1","3","12.25"]])");
    EXPECT_EQ(Sql("SELECT * FROM Trans"), rows);
    EXPECT_EQ(Sql("SELECT Year, Period, Category, CategoryGroup, Amount FROM Budget"),
              R"x([[2006,3,"Food","(none)","0"],[2006,4,"Rent","(none)","0"]])x");
    EXPECT_EQ(BalancesBefore("repair"), R"([["-4.5"],["3"]])");
}

TEST_F(CheckTest, WithNothingToRepairNoBackupIsMade)
{
    EXPECT_EQ(Findings(0, " --repair"), "Balances stored anew: 0\nEverything is in order\n");

    EXPECT_FALSE(folder.Holds("books/db/backup"));
}

/// Symptom: a check reported transactions that another program had deleted only until the next
/// import recomputed all balances. Then everything was "in order".
TEST_F(CheckTest, AnImportDoesNotHideThatBalancesWereWrong)
{
    AddTransaction("8", "C1", "-1", "3", "Food");
    Sql("DELETE FROM Trans WHERE Sequence = 1");

    EXPECT_EQ(Run("import " + Statement("C1", "-2") + Home()), 0);

    EXPECT_EQ(Out(), "Imported 1 transaction\n");
    EXPECT_EQ(Err(),
              "Warning: account 'C1' (Checking): the stored balance was -4.5, its rows added up to "
              "-1; \"clb check\" keeps it listed\n"
              "Warning: the database as it was before is kept as " +
                  BackupBefore("import") + "\n");
    EXPECT_EQ(BalancesBefore("import"), R"([["-4.5"]])");
    EXPECT_EQ(Sql("SELECT CurrentBalance FROM Account"), R"([["-3"]])");
    const std::string noticed =
        "Account 'C1' (Checking): when an import worked the balances out again on " + Today() +
        ", the stored balance was -4.5 and its rows added up to -1.\n";
    EXPECT_EQ(Findings(2), "1. " + noticed);
    EXPECT_EQ(Findings(2, " --repair"), "Balances stored anew: 0\n1. " + noticed);
    EXPECT_EQ(Findings(0, " --accept"),
              "Noticed balances taken note of: 1\nEverything is in order\n");
    EXPECT_EQ(Findings(0, " --accept"),
              "Noticed balances taken note of: 0\nEverything is in order\n");
}

TEST_F(CheckTest, AnImportReportsWrongBalancesAsJsonAndInItsTable)
{
    Sql("UPDATE Account SET CurrentBalance = 7");
    const std::string file = Statement("C1", "-2");

    ASSERT_EQ(Run("import --dry-run " + file + " " + file + Home()), 0) << Err();
    EXPECT_NE(Out().find("  Warning: account 'C1' (Checking): the stored balance was 7, its rows "
                         "added up to -4.5"),
              std::string::npos)
        << Out();
    EXPECT_FALSE(folder.Holds("books/db/backup"));

    ASSERT_EQ(Run("import --json " + file + Home()), 0) << Err();
    EXPECT_EQ(ToLine(Json::parse(Out())["balances"]),
              R"([{"account":"C1","name":"Checking","stored":"7","sum":"-4.5"}])");
    EXPECT_EQ(Json::parse(Out())["backup"], BackupBefore("import"));

    ASSERT_EQ(Run("import --json " + file + Home()), 0) << Err();
    EXPECT_EQ(ToLine(Json::parse(Out())["balances"]), "[]");
    EXPECT_TRUE(Json::parse(Out())["backup"].is_null());
}

/// An account that is mapped to a statement takes the statement's account number.
TEST_F(CheckTest, ANoticedBalanceFollowsItsAccountsNumber)
{
    Sql("UPDATE Account SET CurrentBalance = 7");
    ASSERT_EQ(Run("import " + Statement("C1", "-2") + Home()), 0) << Err();

    ASSERT_EQ(Run("import " + Statement("4711", "-3") + " --map Checking" + Home()), 0) << Err();

    EXPECT_EQ(Sql("SELECT AccountID FROM CvBalance"), R"([["4711"]])");
}

/// The table may belong to another program or to an older version of this one.
TEST_F(CheckTest, AListThatLacksColumnsGetsThem)
{
    Sql("CREATE TABLE CvBalance (AccountID TEXT)");
    Sql("UPDATE Account SET CurrentBalance = 7");

    EXPECT_EQ(Run("check --accept" + Home()), 2) << Err();
    EXPECT_EQ(Run("import " + Statement("C1", "-2") + Home()), 0) << Err();

    EXPECT_EQ(Sql("SELECT AccountID, Stored FROM CvBalance"), R"([["C1","7"]])");
    EXPECT_EQ(Run("check --accept" + Home()), 0) << Err();
}

TEST_F(CheckTest, DamageIsReportedAndNotRepaired)
{
    {
        Connection connection;
        connection.Open("Data Source=" + folder.Path("books/db/clb.mdb"));
        for (int number = 100; number < 300; ++number)
            connection.Execute("INSERT INTO Trans (Sequence, AccountID, Description) VALUES (" +
                               std::to_string(number) + ", 'C1', '" + std::string(400, 'x') + "')");
        connection.Settle();
    }
    std::string bytes = folder.Read("books/db/clb.mdb");
    bytes.replace(bytes.size() - 8192, 8192, std::string(8192, '\x55'));
    folder.Write("books/db/clb.mdb", bytes);

    EXPECT_EQ(Run("check --repair --json" + Home()), 2) << Err();

    const Json report = Json::parse(Out());
    EXPECT_EQ(report["repaired"], 0);
    ASSERT_FALSE(report["findings"].empty());
    EXPECT_EQ(report["findings"][0]["kind"], "damage");
    for (const Json& finding : report["findings"])
        EXPECT_EQ(finding["repairable"], false);
    EXPECT_FALSE(folder.Holds("books/db/backup"));
    EXPECT_TRUE(folder.Read("books/db/clb.mdb") == bytes);
}

TEST_F(CheckTest, AFileOfALaterProgramIsReportedButNotAFinding)
{
    Sql("ALTER TABLE _SchemaVersion DROP COLUMN 2");
    Sql("ALTER TABLE _SchemaVersion ADD COLUMN 7 LONG");
    const std::string before = folder.Read("books/db/clb.mdb");

    EXPECT_EQ(Run("check" + Home()), 0);

    EXPECT_EQ(Out(), folder.Path("books/db/clb.mdb") +
                         "\nSchema version 7: a later program's; this one knows version 2 and "
                         "takes the file as it is\nEverything is in order\n");
    EXPECT_EQ(Run("accounts" + Home()), 0);
    EXPECT_TRUE(folder.Read("books/db/clb.mdb") == before);
}

}  // namespace
}  // namespace clb
