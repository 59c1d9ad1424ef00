// What the check finds in files that other programs have changed, and what a repair fixes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "check/DatabaseCheck.h"
#include "check/DatabaseRepair.h"
#include "data/EmptyDatabase.h"
#include "engine/rows/Connection.h"
#include "engine/storage/Database.h"
#include "engine/storage/EngineError.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const Date kNow = Date::FromIso("2026-03-05 10:00:00").value_or(Date());

class DatabaseCheckTest : public ::testing::Test {
protected:
    DatabaseCheckTest()
    {
        folder_.Write("db/clb.mdb", EmptyDatabase());
        Foreign(
            "INSERT INTO Account (AccountID, Description, Type, CurrentBalance) VALUES ('C1', "
            "'Checking', 'Bank', -30000);"
            "INSERT INTO Budget (Year, Period, Category, CategoryGroup) VALUES (2006, 3, 'Food', "
            "'(none)');");
        AddRow(1, 0, "C1", "2006-03-01", "Baker", -1);
        AddRow(2, 0, "C1", "2006-03-02", "Butcher", -2);
    }
    /// Runs a script of the storage's own SQL, as another program would.
    void Foreign(const std::string& script)
    {
        Database storage;
        storage.OpenExisting(folder_.Path("db/clb.mdb"));
        storage.Run(script);
    }
    void AddRow(int number, int piece, const std::string& account, const std::string& date,
                const std::string& description, int amount)
    {
        Foreign(
            "INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Description, Amount, "
            "Category, Year, Period) VALUES (" +
            std::to_string(number) + ", " + std::to_string(piece) + ", '" + account + "', '" +
            date + "', '" + description + "', " + std::to_string(amount * 10000) +
            ", 'Food', 2006, 3)");
    }
    /// Corrects the stored balances, so that only the subject of a test is found.
    void Settle()
    {
        Foreign(
            "UPDATE Account SET CurrentBalance = coalesce((SELECT sum(Amount) FROM "
            "Trans t WHERE t.AccountID = Account.AccountID), 0)");
    }
    std::vector<Finding> Found() { return CheckDatabase(folder_.Path()).findings; }
    std::vector<std::string> Texts()
    {
        std::vector<std::string> texts;
        for (const Finding& finding : Found()) {
            texts.push_back(finding.kind + ": " + finding.text);
            EXPECT_FALSE(finding.meaning.empty()) << finding.text;
        }
        return texts;
    }
    /// Number, piece and description of each transaction, in the order of the rows.
    std::vector<std::string> Numbers()
    {
        Database storage;
        storage.OpenExisting(folder_.Path("db/clb.mdb"));
        Query rows = storage.Prepare(
            "SELECT coalesce(Sequence, 'none') || '/' || SubSequence || ' ' || Description FROM "
            "Trans ORDER BY rowid");
        std::vector<std::string> texts;
        while (storage.Step(rows))
            texts.push_back(rows.Text(0));
        return texts;
    }

    TempFolder folder_{TempFolder::Memory()};
};

TEST_F(DatabaseCheckTest, AnOrdinaryFileIsInOrder)
{
    AddRow(2, 1, "C1", "2006-03-09", "Butcher (split #1)", 0);

    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(DatabaseCheckTest, ReportsEveryCellThatDoesNotFitItsColumn)
{
    Foreign(
        "UPDATE Trans SET Amount = '12,50 EUR' WHERE Sequence = 1;"
        "UPDATE Trans SET Amount = 12.5, PostDate = '2006-02-30', SubSequence = 3000000000 WHERE "
        "Sequence = 2;"
        "UPDATE Budget SET Amount = x'3132', CategoryGroup = x'41';"
        "UPDATE Account SET BudgetInclude = 'yes', OpeningBalance = '';"
        "INSERT INTO Loan (Description, InterestRate) VALUES ('Car', 'five');");

    EXPECT_THAT(
        Texts(),
        ::testing::IsSupersetOf(
            {"cell: Account.OpeningBalance of number 1 holds the text '', which is not an amount.",
             "cell: Account.BudgetInclude of number 1 holds the text 'yes', which is not yes (1) "
             "or "
             "no (0).",
             "cell: Trans.Amount of number 1 holds the text '12,50 EUR', which is not an amount.",
             "cell: Trans.SubSequence of number 2 holds the number 3000000000, which is too large.",
             "cell: Trans.PostDate of number 2 holds the text '2006-02-30', which is not a date.",
             "cell: Trans.Amount of number 2 holds the binary fraction 12.5, which is not an "
             "amount.",
             "cell: Budget.CategoryGroup of number 1 holds 1 raw bytes, which is not a text.",
             "cell: Budget.Amount of number 1 holds 2 raw bytes, which is not an amount.",
             "cell: Loan.InterestRate of number 1 holds the text 'five', which is not a number."}));
    for (const Finding& finding : Found())
        EXPECT_TRUE(finding.kind != "cell" || !finding.repairable) << finding.text;
}

TEST_F(DatabaseCheckTest, ReportsTextsThatCannotBeStoredAgain)
{
    const std::string longName(51, 'x');
    Foreign("UPDATE Budget SET CategoryGroup = '" + longName +
            "';"
            "UPDATE Trans SET Description = CAST(x'41ff' AS TEXT) WHERE Sequence = 2;");

    EXPECT_THAT(Texts(),
                ElementsAre("text: Trans.Description of number 2 holds a text that is not valid "
                            "UTF-8.",
                            "text: Budget.CategoryGroup of number 1 holds a text of 51 characters, "
                            "where 50 fit."));
}

TEST_F(DatabaseCheckTest, TheRowOfACellIsNamed)
{
    Foreign("UPDATE Trans SET Sequence = 17 WHERE Sequence = 2");
    Foreign("UPDATE Trans SET Amount = 'x' WHERE Sequence = 17");

    const std::vector<Finding> found = Found();

    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found[0].text,
              "Trans.Amount of row 2 (number 17) holds the text 'x', which is not an amount.");
    EXPECT_EQ(found[0].table, "Trans");
    EXPECT_EQ(found[0].column, "Amount");
    EXPECT_EQ(found[0].row, 2);
    EXPECT_EQ(found[0].sequence, 17);
}

// Symptom: the advice was "Put in the right value", but no command could.
TEST_F(DatabaseCheckTest, ReportsACellWithTheCommandThatFixesIt)
{
    Foreign("UPDATE Account SET OpeningBalance = '12,50 EUR'");

    const std::vector<Finding> found = Found();

    ASSERT_EQ(found.size(), 1U);
    EXPECT_THAT(
        found[0].meaning,
        testing::EndsWith(" Put in the right value: clb sql '" + folder_.Path() +
                          "' \"UPDATE Account SET OpeningBalance = 0 WHERE Sequence = 1\""));
    Connection connection;
    connection.Open("Data Source=" + folder_.Path("db/clb.mdb"));
    connection.Execute(found[0].query);
    connection.Settle();
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(DatabaseCheckTest, ReportsNumbersThatTheProgramNeverUses)
{
    AddRow(8, 0, "C1", "2006-03-01", "x", 0);
    AddRow(9, -1, "C1", "2006-03-01", "x", 0);
    AddRow(0, 0, "C1", "2006-03-01", "x", 0);
    Foreign(
        "UPDATE Trans SET SubSequence = NULL WHERE Sequence = 8;"
        "INSERT INTO Loan (Sequence, AccountID, InterestRate) VALUES (1, 'C1', 1e300)");

    EXPECT_THAT(
        Texts(),
        testing::IsSupersetOf(
            {"number: Trans.SubSequence of row 3 (number 8) holds nothing, where a number "
             "must be.",
             "number: Trans.SubSequence of row 4 (number 9) holds the number -1, where "
             "numbers begin at 0.",
             "number: Trans.Sequence of row 5 (number 0) holds the number 0, where numbers "
             "begin at 1.",
             "cell: Loan.InterestRate of number 1 holds the binary fraction 1.0e+300, which "
             "is too large."}));
}

TEST_F(DatabaseCheckTest, TheListOfNoticedBalancesIsLookedAtToo)
{
    Foreign("UPDATE Account SET CurrentBalance = 5");
    RepairDatabase(folder_.Path(), kNow);
    Foreign("UPDATE CvBalance SET At = 'garbage', Stored = 'abc', Total = x'00'");

    EXPECT_THAT(
        Texts(),
        testing::IsSupersetOf(
            {"cell: CvBalance.At of row 1 holds the text 'garbage', which is not a date.",
             "cell: CvBalance.Stored of row 1 holds the text 'abc', which is not an amount.",
             "noticed: Account 'C1' (Checking): when a repair worked the balances out again "
             "on an unknown day, the stored balance was not an amount and its rows added "
             "up to not an amount."}));
    Foreign("UPDATE CvBalance SET TakenNoteOf = 'nonsense'");
    EXPECT_THAT(Texts(),
                testing::Contains("cell: CvBalance.TakenNoteOf of row 1 holds the text 'nonsense', "
                                  "which is not a date."));
    Foreign("DROP TABLE CvBalance; CREATE TABLE CvBalance (x)");
    EXPECT_THAT(Texts(), ElementsAre("column: The column CvBalance.At is missing."));
}

TEST_F(DatabaseCheckTest, ReportsAnInvalidMonthInWords)
{
    Foreign(
        "UPDATE Trans SET Period = NULL WHERE Sequence = 1;"
        "UPDATE Trans SET Year = 99999999999 WHERE Sequence = 2;"
        "INSERT INTO Budget (Period) VALUES (12)");

    EXPECT_THAT(Texts(),
                testing::IsSupersetOf(
                    {"month: Trans: number 1 is booked to an empty month of the year 2006, which "
                     "is no month.",
                     "month: Budget: number 2 is booked to month 12 of the year 0, which is "
                     "no month."}));
}

TEST_F(DatabaseCheckTest, ManyFindingsOfAKindAreCounted)
{
    for (int number = 3; number < 120; ++number)
        AddRow(number, 0, "C1", "2006-03-01", "x", 0);
    Foreign("UPDATE Trans SET Amount = 'x'");

    const std::vector<Finding> found = Found();

    ASSERT_EQ(found.size(), 101U);
    EXPECT_EQ(found.back().text, "Trans.Amount: 19 more like these.");
    EXPECT_EQ(found.back().rows, 19);
}

/// A balance is not reported if one of its rows cannot be read, because the sum is unknown.
TEST_F(DatabaseCheckTest, AnAccountWithARowThatIsNoAmountIsNotRepaired)
{
    Foreign(
        "UPDATE Trans SET Amount = 'x' WHERE Sequence = 1;"
        "UPDATE Account SET CurrentBalance = 5");

    RepairDatabase(folder_.Path(), kNow);

    EXPECT_THAT(Texts(), ElementsAre("cell: Trans.Amount of number 1 holds the text 'x', which is "
                                     "not an amount."));
}

TEST_F(DatabaseCheckTest, ReportsAccountsWithTheSameNumber)
{
    Foreign(
        "INSERT INTO Account (AccountID, Description, Type) VALUES ('C1', 'Twin', 'Bank');"
        "INSERT INTO Account (Description, Type) VALUES ('Nameless', 'Bank');");

    EXPECT_THAT(Texts(),
                ElementsAre("account: Account: the numbers 1 and 2 have the same account number "
                            "'C1'.",
                            "account: Account: number 3 (Nameless) has no account number."));
}

/// Symptom: such a balance was listed as "missing".
TEST_F(DatabaseCheckTest, ABalanceThatIsNoAmountIsStoredAnewAndListedAsItWas)
{
    const std::vector<std::pair<std::string, std::string>> balances = {
        {"12.5", "the binary fraction 12.5"},
        {"x'0102'", "2 raw bytes"},
        {"'it''s 3'", "the text 'it's 3'"},
        {"NULL", "missing"}};
    for (const auto& [stored, listed] : balances) {
        Foreign("UPDATE Account SET CurrentBalance = " + stored);

        EXPECT_EQ(RepairDatabase(folder_.Path(), kNow).balances, 1);

        EXPECT_THAT(
            Texts(),
            ElementsAre("noticed: Account 'C1' (Checking): when a repair worked the balances out "
                        "again on 2026-03-05, the stored balance was " +
                        listed + " and its rows added up to -3."));
        EXPECT_EQ(AcceptBalances(folder_.Path(), kNow), 1);
        EXPECT_THAT(Texts(), IsEmpty());
    }
}

TEST_F(DatabaseCheckTest, ABalanceWithATextThatEndsEarlyIsStoredAnew)
{
    Foreign("UPDATE Account SET CurrentBalance = '3'|| x'00'");

    EXPECT_EQ(RepairDatabase(folder_.Path(), kNow).balances, 1);
    EXPECT_EQ(AcceptBalances(folder_.Path(), kNow), 1);

    EXPECT_THAT(Texts(), IsEmpty());
}

/// Older lists had no column for it.
TEST_F(DatabaseCheckTest, AnOlderListOfBalancesIsReadAndGoneOnWith)
{
    Foreign(
        "CREATE TABLE CvBalance (At DATETIME, AccountID TEXT, Stored MONEY, Total MONEY, "
        "NoticedBy TEXT, TakenNoteOf DATETIME);"
        "INSERT INTO CvBalance (At, AccountID, Stored, Total, NoticedBy) VALUES ('2026-03-01', "
        "'C1', 50000, 70000, 'import');");
    EXPECT_THAT(Texts(), ElementsAre(HasSubstr("the stored balance was 5 and")));
    Foreign("UPDATE Account SET CurrentBalance = 12.5");

    EXPECT_EQ(RepairDatabase(folder_.Path(), kNow).balances, 1);

    EXPECT_THAT(Texts(), ElementsAre(HasSubstr("the stored balance was 5 and"),
                                     HasSubstr("the stored balance was the binary fraction 12.5")));
}

TEST_F(DatabaseCheckTest, ReportsMissingDeclarations)
{
    Foreign(
        "DROP TRIGGER RowsFollowAccount;"
        "ALTER TABLE Account DROP COLUMN OpeningBalance;"
        "DROP TABLE Loan;"
        "DROP INDEX TransBySequence;"
        "CREATE TRIGGER Spy AFTER INSERT ON Trans BEGIN DELETE FROM Budget; END;"
        "CREATE VIEW Sums AS SELECT 1;");

    EXPECT_THAT(Texts(),
                ElementsAre("column: The column Account.OpeningBalance is missing.",
                            "table: The table Loan is missing.",
                            "index: The index TransBySequence on Trans (Sequence, SubSequence) is "
                            "missing.",
                            "trigger: The trigger Spy on Trans is not this program's.",
                            "trigger: The trigger RowsFollowAccount on Account is missing.",
                            "view: The view Sums is not this program's."));
}

// Symptom: no finding was reported, but no start could open the data.
TEST_F(DatabaseCheckTest, ReportsALostVersion)
{
    Foreign("DROP TABLE _SchemaVersion");

    EXPECT_THAT(Texts(), ElementsAre("table: The table _SchemaVersion is missing, which holds the "
                                     "version of the data."));
}

TEST_F(DatabaseCheckTest, ReportsAnAccountOfAnUnknownType)
{
    Foreign("UPDATE Account SET Type = 'bank' WHERE AccountID = 'C1'");

    EXPECT_THAT(Texts(), testing::Contains(testing::HasSubstr("has the type 'bank'")));
}

TEST_F(DatabaseCheckTest, MissingIndexesAndTriggersAreMadeAgain)
{
    Foreign("DROP INDEX TransBySequence; DROP TRIGGER RowsFollowAccount;");

    EXPECT_EQ(RepairDatabase(folder_.Path(), kNow).schema, 2);

    EXPECT_THAT(Texts(), IsEmpty());
    Foreign("UPDATE Account SET AccountID = 'C2'");
    EXPECT_THAT(Texts(), IsEmpty());
}

// Symptom: no finding was reported, but every start failed.
TEST_F(DatabaseCheckTest, ReportsAVersionThatIsOlderThanTheTables)
{
    Foreign("ALTER TABLE _SchemaVersion RENAME COLUMN \"2\" TO \"1\"");

    EXPECT_THAT(Texts(), ElementsAre("table: The table _SchemaVersion names version 1, but the "
                                     "table Account is of version 2."));
}

/// Older versions used a number twice if two programs wrote at the same time.
TEST_F(DatabaseCheckTest, ReportsANumberThatIsUsedTwiceAndRenumbersTheLaterOne)
{
    AddRow(2, 0, "C1", "2006-03-05", "Grocer", -3);
    Settle();

    EXPECT_THAT(Texts(),
                ElementsAre("number: Trans: number 2 stands for 2 transactions (2 rows)."));
    const RepairReport repair = RepairDatabase(folder_.Path(), kNow);

    EXPECT_EQ(repair.numbers, 1);
    EXPECT_EQ(repair.backup, folder_.Path("db/backup/clb-2026-03-05-before-repair.mdb"));
    EXPECT_THAT(Numbers(), ElementsAre("1/0 Baker", "2/0 Butcher", "3/0 Grocer"));
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(DatabaseCheckTest, PiecesThatBelongTogetherKeepTogether)
{
    AddRow(2, 0, "C1", "2006-03-05", "Grocer", -3);
    AddRow(2, 1, "C1", "2006-03-05", "Grocer (split #1)", -1);
    AddRow(2, 1, "C1", "2006-03-02", "Butcher (split #1)", -1);
    AddRow(2, 2, "C1", "2006-03-05", "renamed", -1);
    Settle();

    RepairDatabase(folder_.Path(), kNow);

    EXPECT_THAT(Numbers(),
                ElementsAre("1/0 Baker", "2/0 Butcher", "3/0 Grocer", "3/1 Grocer (split #1)",
                            "2/1 Butcher (split #1)", "3/2 renamed"));
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(DatabaseCheckTest, ANumberInTwoAccountsStandsForTwoTransactions)
{
    Foreign("INSERT INTO Account (AccountID, Description, Type) VALUES ('C2', 'Other', 'Bank')");
    AddRow(1, 0, "C2", "2006-03-01", "Baker", -1);
    AddRow(1, 1, "C2", "2006-03-01", "Baker (split #1)", -1);
    Foreign("UPDATE Trans SET Sequence = NULL WHERE Sequence = 2");
    Settle();

    EXPECT_EQ(RepairDatabase(folder_.Path(), kNow).numbers, 3);

    EXPECT_THAT(Numbers(),
                ElementsAre("1/0 Baker", "2/0 Butcher", "3/0 Baker", "3/1 Baker (split #1)"));
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(DatabaseCheckTest, WithoutNumbersLeftNothingIsRenumbered)
{
    AddRow(2147483647, 0, "C1", "2006-03-05", "Last", 0);
    AddRow(2147483647, 0, "C1", "2006-03-06", "Last too", 0);

    EXPECT_THAT(Texts(), ElementsAre("number: Trans: number 2147483647 stands for 2 transactions "
                                     "(2 rows).",
                                     HasSubstr("counter: Trans: number 2147483647")));
    for (const Finding& finding : Found())
        EXPECT_FALSE(finding.repairable);
    EXPECT_EQ(RepairDatabase(folder_.Path(), kNow).numbers, 0);
}

/// Symptom: no finding was reported, but no new row could be stored.
TEST_F(DatabaseCheckTest, ReportsUsedUpNumbers)
{
    AddRow(2147483647, 0, "C1", "2006-03-05", "Last", 0);
    Foreign(
        "INSERT INTO Budget (Sequence, Year, Period, Category, CategoryGroup) VALUES (2147483647, "
        "2006, 4, 'Food', '(none)');"
        "INSERT INTO Loan (Sequence, AccountID) VALUES (2147483647, 'C1');"
        "DELETE FROM Loan;");

    EXPECT_THAT(
        Texts(),
        ElementsAre(
            "counter: Trans: number 2147483647 (row 3) is the largest that there can be. No "
            "number is left for a new row.",
            "counter: Budget: number 2147483647 is the largest that there can be. No number "
            "is left for a new row.",
            "counter: Loan: number 2147483647, whose row is gone, is the largest that there "
            "can be. No number is left for a new row."));
    const std::vector<Finding> found = Found();
    EXPECT_EQ(found[0].table, "Trans");
    EXPECT_EQ(found[0].row, 3);
    EXPECT_EQ(found[0].sequence, 2147483647);
    EXPECT_EQ(found[2].row, std::nullopt);
    EXPECT_EQ(found[0].column, "Sequence");
    for (const Finding& finding : found) {
        EXPECT_FALSE(finding.repairable);
        EXPECT_THAT(finding.meaning, HasSubstr("refused"));
    }
}

TEST_F(DatabaseCheckTest, TheLastNumberButOneIsInOrder)
{
    AddRow(2147483646, 0, "C1", "2006-03-05", "Last but one", 0);

    EXPECT_THAT(Texts(), IsEmpty());
}

/// They make the storage reject rows, but were not reported.
TEST_F(DatabaseCheckTest, ReportsAndKeepsUniqueIndexesOfAnotherProgram)
{
    Foreign(
        "CREATE UNIQUE INDEX OneADay ON Trans (AccountID, PostDate);"
        "CREATE UNIQUE INDEX OneName ON Budget (lower(Category)) WHERE Amount > 0;"
        "CREATE INDEX Harmless ON Trans (Description);");

    EXPECT_THAT(Texts(),
                ElementsAre("index: The index OneADay on Trans (AccountID, PostDate), which takes "
                            "no values twice, is not this program's.",
                            "index: The index OneName on Budget (an expression), which takes no "
                            "values twice, is not this program's."));
    for (const Finding& finding : Found()) {
        EXPECT_FALSE(finding.repairable);
        EXPECT_THAT(finding.meaning, HasSubstr("refused"));
    }
    RepairDatabase(folder_.Path(), kNow);
    EXPECT_EQ(Texts().size(), 2U);
}

TEST_F(DatabaseCheckTest, ReportsATableWithAUniqueColumn)
{
    Foreign(
        "CREATE TABLE Copy (Sequence INTEGER PRIMARY KEY AUTOINCREMENT, Year LONG DEFAULT 0, "
        "Period LONG DEFAULT 0, CategoryGroup TEXT(50), Category TEXT(50) UNIQUE, Amount MONEY "
        "DEFAULT 0);"
        "INSERT INTO Copy SELECT * FROM Budget; DROP TABLE Budget;"
        "ALTER TABLE Copy RENAME TO Budget;"
        "CREATE INDEX BudgetByMonth ON Budget (Year, Period, Category);"
        "CREATE INDEX BudgetByMonthGroup ON Budget (Year, Period, CategoryGroup, Amount);");

    EXPECT_THAT(Texts(), ElementsAre("index: The table Budget, which takes no values of Category "
                                     "twice, is not declared so by this program."));
}

/// If every piece were compared with every transaction, a table of rows with one number would take
/// years.
TEST_F(DatabaseCheckTest, AVeryCommonNumberIsNoTrouble)
{
    Foreign(
        "INSERT INTO Trans (Sequence, SubSequence, AccountID, Category, Year, Period) SELECT 5, "
        "a.value % 3, 'C1', 'Food', 2006, 3 FROM (SELECT 1 AS value) AS a;"
        "INSERT INTO Trans SELECT * FROM Trans; INSERT INTO Trans SELECT * FROM Trans;"
        "INSERT INTO Trans SELECT * FROM Trans; INSERT INTO Trans SELECT * FROM Trans;"
        "INSERT INTO Trans SELECT * FROM Trans; INSERT INTO Trans SELECT * FROM Trans;"
        "INSERT INTO Trans SELECT * FROM Trans; INSERT INTO Trans SELECT * FROM Trans;"
        "INSERT INTO Trans SELECT * FROM Trans; INSERT INTO Trans SELECT * FROM Trans;"
        "INSERT INTO Trans SELECT * FROM Trans; INSERT INTO Trans SELECT * FROM Trans;"
        "UPDATE Trans SET Sequence = 5, SubSequence = rowid % 3;");
    Settle();

    RepairDatabase(folder_.Path(), kNow);

    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(DatabaseCheckTest, AFileThatIsNoDatabaseIsAFinding)
{
    folder_.Write("db/clb.mdb", std::string(5000, 'x'));

    EXPECT_THAT(Texts(), ElementsAre(HasSubstr("damage: The file is damaged: it is no database")));
}

TEST_F(DatabaseCheckTest, AMissingFileIsAnError)
{
    EXPECT_THROW(CheckDatabase(folder_.Path("nowhere")), EngineError);
}

/// The check ends for any damage to the bytes of a file.
TEST_F(DatabaseCheckTest, FlippedBytesNeverEndTheCheck)
{
    for (int number = 3; number < 60; ++number)
        AddRow(number, 0, "C1", "2006-03-01", std::string(100, 'x'), 0);
    const std::string sound = folder_.Read("db/clb.mdb");
    std::mt19937 random(20060305);
    int found = 0;
    for (int round = 0; round < 300; ++round) {
        std::string bytes = sound;
        const std::size_t reach = round % 3 == 0 ? 100 : round % 3 == 1 ? 4096 : bytes.size();
        for (int flip = 0; flip < 4; ++flip)
            bytes[random() % reach] = static_cast<char>(random());
        if (round % 20 == 0)
            bytes.resize(random() % bytes.size());
        folder_.Write("db/clb.mdb", bytes.empty() ? "x" : bytes);
        std::filesystem::remove(folder_.Path("db/clb.mdb-wal"));
        try {
            found += Found().empty() ? 0 : 1;
        } catch (const std::exception& error) {
            ADD_FAILURE() << "round " << round << ": " << error.what();
        }
    }
    EXPECT_GT(found, 100);
}

/// For any contents of the cells, a repair fixes all that it can, and no row is lost.
TEST_F(DatabaseCheckTest, ARepairOfAnyCellsMendsAllThatIsMendable)
{
    for (int number = 3; number < 20; ++number)
        AddRow(number, 0, "C1", "2006-03-01", "x", 0);
    const std::string sound = folder_.Read("db/clb.mdb");
    const std::vector<std::string> values = {
        "'x'", "12.5", "x'31'", "NULL", "0", "1", "''", "3000000000000", "-5", "'2006-03-01'"};
    const std::vector<std::string> cells = {
        "Trans SET Amount",      "Trans SET Sequence",   "Trans SET SubSequence",
        "Trans SET AccountID",   "Trans SET PostDate",   "Trans SET Category",
        "Trans SET Year",        "Trans SET Period",     "Account SET CurrentBalance",
        "Account SET AccountID", "Account SET Type",     "Budget SET Category",
        "Budget SET Year",       "Trans SET Description"};
    std::mt19937 random(4711);
    for (int round = 0; round < 60; ++round) {
        folder_.Write("db/clb.mdb", sound);
        for (int change = 0; change < 4; ++change)
            Foreign("UPDATE " + cells[random() % cells.size()] + " = " +
                    values[random() % values.size()] +
                    " WHERE rowid % 3 = " + std::to_string(random() % 3));
        const std::size_t rows = Numbers().size();

        RepairDatabase(folder_.Path(), kNow);

        for (const Finding& finding : Found())
            EXPECT_FALSE(finding.repairable) << "round " << round << ": " << finding.text;
        EXPECT_EQ(Numbers().size(), rows);
    }
}

}  // namespace
}  // namespace clb
