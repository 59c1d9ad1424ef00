#include "CommandFixture.h"

#include "engine/Connection.h"

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
    /// Runs a check; the findings behind the first lines.
    std::string Findings(int exitCode, const std::string& words = "")
    {
        EXPECT_EQ(Run("check" + words + Home()), exitCode) << Err();
        const std::string head = folder.Path("books/db/clb.mdb") + "\nSchema version 2\n";
        EXPECT_EQ(Out().substr(0, head.size()), head);
        return Out().substr(std::min(head.size(), Out().size()));
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

TEST_F(CheckTest, EachFindingIsToldWithItsNumbersAndPlace)
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

TEST_F(CheckTest, ARepairStoresBalancesAnewAndNothingElse)
{
    AddTransaction("8", "C1", "-1", "4", "Rent");
    Sql("INSERT INTO Account (AccountID, Description, Type, OpeningBalance, CurrentBalance) "
        "VALUES ('H1', 'Shares', 'Investment', 3, 3)");
    Sql("INSERT INTO Investment (AccountID, Total) VALUES ('H1', 12.25)");
    const std::string rows = Sql("SELECT * FROM Trans");
    const std::string budget = Sql("SELECT * FROM Budget");

    EXPECT_EQ(Findings(2, " --repair"),
              "Balances stored anew: 2\n"
              "1. Trans: 1 row (number 8) with the category 'Rent', which has no budget line in "
              "2006-04.\n");

    EXPECT_EQ(Sql("SELECT AccountID, OpeningBalance, CurrentBalance FROM Account"),
              R"([["C1","0","-5.5"],["H1","3","12.25"]])");
    EXPECT_EQ(Sql("SELECT * FROM Trans"), rows);
    EXPECT_EQ(Sql("SELECT * FROM Budget"), budget);
}

TEST_F(CheckTest, DamageIsToldAndNotRepaired)
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
    for (const Json& finding : report["findings"])
        EXPECT_EQ(finding["kind"], "damage");
    EXPECT_TRUE(folder.Read("books/db/clb.mdb") == bytes);
}

TEST_F(CheckTest, ALaterProgramsFileIsToldAndIsNoFinding)
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
