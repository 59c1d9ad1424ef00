// Cells in which another program has stored something that is not an amount: clb names the cell.

#include "CommandFixture.h"
#include "engine/storage/Database.h"

namespace clb {
namespace {

class ForeignCellsTest : public CommandFixture {
protected:
    ForeignCellsTest()
    {
        EXPECT_EQ(Run("new " + Books()), 0);
        Foreign(
            "INSERT INTO Account (AccountID, Description, Type) VALUES ('C1', 'Checking', 'Bank'), "
            "('S''1', 'Savings', 'Bank'), ('I1', 'Shares', 'Investment'), ('L1', 'House', 'Loan');"
            "INSERT INTO Trans (Sequence, SubSequence, AccountID, Amount, Year, Period) VALUES "
            "(4, 0, 'S''1', 0, 2006, 3), (5, 2, 'S''1', 0, 2006, 3);"
            "INSERT INTO Investment (AccountID, Total) VALUES ('I1', 0);"
            "INSERT INTO Loan (AccountID) VALUES ('L1');");
    }
    /// Runs a script of the storage's own SQL, as another program would.
    void Foreign(const std::string& script)
    {
        Database storage;
        storage.OpenExisting(folder.Path("books/db/clb.mdb"));
        storage.Run(script);
    }
    /// The error of importing a statement of the account C1. The import must store nothing.
    std::string Refusal()
    {
        const std::string before = folder.Read("books/db/clb.mdb");
        EXPECT_EQ(Run("import " + Statement("C1", "-2") + Home()), 1);
        EXPECT_TRUE(folder.Read("books/db/clb.mdb") == before);
        return Err();
    }
};

// Symptom: "A cell that is calculated with holds something other than the number its column is
// for." Nobody could find the cell in a book of many accounts.
TEST_F(ForeignCellsTest, AnImportNamesTheCellOfAnotherAccount)
{
    Foreign("UPDATE Trans SET Amount = '12,50' WHERE Sequence = 5");
    EXPECT_EQ(Refusal(),
              "clb: Trans.Amount of number 5, piece 2 (account 'S'1') holds the text '12,50', "
              "which is not an amount.\n");

    Foreign("UPDATE Trans SET Amount = x'0102' WHERE Sequence = 5");
    EXPECT_EQ(Refusal(),
              "clb: Trans.Amount of number 5, piece 2 (account 'S'1') holds 2 raw bytes, which is "
              "not an amount.\n");

    Foreign("UPDATE Trans SET Amount = 12.5 WHERE Sequence = 5");
    EXPECT_EQ(Refusal(),
              "clb: Trans.Amount of number 5, piece 2 (account 'S'1') holds the binary fraction "
              "12.5, which is not an amount.\n");
}

TEST_F(ForeignCellsTest, AnImportNamesTheCellOfAHoldingAndOfALoan)
{
    Foreign("UPDATE Loan SET PaidAmount = 'none'");
    EXPECT_EQ(Refusal(),
              "clb: Loan.PaidAmount of number 1 (account 'L1') holds the text 'none', which is not "
              "an amount.\n");

    Foreign("UPDATE Investment SET Total = 1.5");
    EXPECT_EQ(Refusal(),
              "clb: Investment.Total of number 1 (account 'I1') holds the binary fraction 1.5, "
              "which is not an amount.\n");
}

TEST_F(ForeignCellsTest, ARowWithoutANumberIsNamedByItsPlace)
{
    Foreign("UPDATE Trans SET Amount = 'x', Sequence = NULL WHERE Sequence = 5");

    EXPECT_EQ(Refusal(),
              "clb: Trans.Amount of row 2 (account 'S'1') holds the text 'x', which is not an "
              "amount.\n");
}

/// The sums of many accounts are made together.
TEST_F(ForeignCellsTest, AmongManyAccountsTheCellIsNamedToo)
{
    for (int number = 0; number < 60; ++number)
        Foreign("INSERT INTO Account (AccountID, Description, Type) VALUES ('N" +
                std::to_string(number) + "', 'Other', 'Bank')");
    Foreign("UPDATE Trans SET Amount = '12,50' WHERE Sequence = 5");

    EXPECT_EQ(Refusal(),
              "clb: Trans.Amount of number 5, piece 2 (account 'S'1') holds the text '12,50', "
              "which is not an amount.\n");
}

/// One such account must not keep the other balances from being recomputed.
TEST_F(ForeignCellsTest, AnAccountWhoseRowsAddUpToTooMuchKeepsItsBalanceAndTheOthersAreStored)
{
    Foreign(
        "UPDATE Trans SET Amount = 9000000000000000000;"
        "UPDATE Account SET CurrentBalance = 70000 WHERE AccountID = 'S''1';"
        "UPDATE Account SET CurrentBalance = 50000 WHERE AccountID IN ('I1', 'L1');"
        "UPDATE Investment SET Total = 120000;");

    EXPECT_EQ(Run("import " + Statement("C1", "-2") + Home()), 1);

    EXPECT_NE(Err().find("The rows of the account 'S'1' add up to more than an amount can be."),
              std::string::npos)
        << Err();
    EXPECT_EQ(Sql("SELECT AccountID, CurrentBalance FROM Account"),
              R"([["C1","-2"],["S'1","7"],["I1","12"],["L1","0"]])");
}

}  // namespace
}  // namespace clb
