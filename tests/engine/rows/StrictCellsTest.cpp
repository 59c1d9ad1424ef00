// Cells in which another program has stored values of another type.
#include "engine/storage/Database.h"
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

class StrictCellsTest : public EngineTest {
protected:
    StrictCellsTest()
    {
        Run("INSERT INTO Trans (AccountID, Amount, Year, PostDate, Sequence) VALUES ('C1', 1, "
            "2006, #2006-03-01#, 1)");
        Run("INSERT INTO Trans (AccountID, Amount, Year, PostDate, Sequence) VALUES ('C1', 2, "
            "2006, #2006-03-02#, 2)");
        connection_.Settle();
    }
    /// Writes without the dialect, as another program would.
    void Foreign(const std::string& sql)
    {
        Database storage;
        storage.OpenExisting(path_);
        storage.Run(sql);
    }
    EngineError Refusal(const std::string& sql)
    {
        return ErrorOf([&] { Rows(sql); });
    }
};

/// Symptom: the text was read as 0.0012.
TEST_F(StrictCellsTest, ATextIsNotAnAmountAndItsPlaceIsNamed)
{
    Foreign("UPDATE Trans SET Amount = '12,50 EUR' WHERE Sequence = 2");

    const EngineError error = Refusal("SELECT Sequence, Amount FROM Trans");

    EXPECT_EQ(error.Number(), engine_errors::TypeMismatch);
    EXPECT_STREQ(error.what(),
                 "Trans.Amount in row 2: The cell holds the text '12,50 EUR', which is not an "
                 "amount.");
}

/// Symptom: 12.5, written by a tool that does not know the scale, was read as 0.0012.
TEST_F(StrictCellsTest, ABinaryFractionAndRawBytesAreNotAmounts)
{
    Foreign("UPDATE Trans SET Amount = 12.5 WHERE Sequence = 1");
    Foreign("UPDATE Trans SET Amount = x'3132' WHERE Sequence = 2");

    EXPECT_STREQ(Refusal("SELECT Amount FROM Trans WHERE Sequence = 1").what(),
                 "Trans.Amount in row 1: The cell holds the binary fraction 12.5, which is not an "
                 "amount.");
    EXPECT_STREQ(Refusal("SELECT Amount FROM Trans WHERE Sequence = 2").what(),
                 "Trans.Amount in row 2: The cell holds 2 raw bytes, which is not an amount.");
}

/// Symptom: a sum silently counted the text as 12 ten-thousandths.
TEST_F(StrictCellsTest, NoSumIncludesACellThatIsNotAnAmount)
{
    for (const char* cell : {"'12,50 EUR'", "12.5", "x'3132'", "''"}) {
        Foreign(std::string("UPDATE Trans SET Amount = ") + cell + " WHERE Sequence = 2");
        for (const char* sql :
             {"SELECT SUM(Amount) AS T FROM Trans", "SELECT AVG(Amount) AS T FROM Trans",
              "SELECT SUM(Amount - 1) AS T FROM Trans", "SELECT SUM(-Amount) AS T FROM Trans",
              "SELECT SUM(Amount * 2) AS T FROM Trans", "SELECT CDbl(Amount) AS T FROM Trans",
              "SELECT CStr(Amount) AS T FROM Trans", "SELECT Amount + 1 AS T FROM Trans",
              "SELECT ROUND(Amount, 2) AS T FROM Trans",
              "SELECT AccountID FROM Trans GROUP BY AccountID HAVING SUM(Amount) > 0"})
            EXPECT_EQ(Refusal(sql).Number(), engine_errors::TypeMismatch) << sql << " " << cell;
    }
    EXPECT_EQ(Rows("SELECT SUM(Amount) AS T FROM Trans WHERE Sequence = 1"),
              std::vector<std::string>{"1"});
}

TEST_F(StrictCellsTest, AnUpdateDoesNotCalculateWithACellThatIsNotAnAmount)
{
    Foreign("UPDATE Trans SET Amount = '12,50 EUR' WHERE Sequence = 2");

    EXPECT_EQ(ErrorOf([&] { Run("UPDATE Trans SET Amount = Amount + 1"); }).Number(),
              engine_errors::TypeMismatch);

    Run("UPDATE Trans SET Amount = 12.5 WHERE Sequence = 2");
    EXPECT_EQ(Rows("SELECT SUM(Amount) AS T FROM Trans"), std::vector<std::string>{"13.5"});
}

TEST_F(StrictCellsTest, NumbersDatesAndYesOrNoAreAsStrict)
{
    Foreign("UPDATE Trans SET Year = '2006a' WHERE Sequence = 1");
    Foreign("UPDATE Trans SET PostDate = 38777 WHERE Sequence = 1");
    Foreign("UPDATE Trans SET PostDate = '01.03.2006' WHERE Sequence = 2");
    Run("INSERT INTO Account (AccountID) VALUES ('C1')");
    connection_.Settle();
    Foreign("UPDATE Account SET BudgetInclude = 'yes'");

    EXPECT_STREQ(Refusal("SELECT Year FROM Trans").what(),
                 "Trans.Year in row 1: The cell holds the text '2006a', which is not a whole "
                 "number.");
    EXPECT_EQ(Refusal("SELECT SUM(Year) AS T FROM Trans").Number(), engine_errors::TypeMismatch);
    EXPECT_EQ(Refusal("SELECT Year + 1 AS T FROM Trans").Number(), engine_errors::TypeMismatch);
    EXPECT_STREQ(Refusal("SELECT PostDate FROM Trans WHERE Sequence = 1").what(),
                 "Trans.PostDate in row 1: The cell holds the number 38777, which is not a date.");
    EXPECT_STREQ(Refusal("SELECT PostDate FROM Trans WHERE Sequence = 2").what(),
                 "Trans.PostDate in row 2: The cell holds the text '01.03.2006', which is not a "
                 "date.");
    EXPECT_STREQ(Refusal("SELECT BudgetInclude FROM Account").what(),
                 "Account.BudgetInclude in row 1: The cell holds the text 'yes', which is not yes "
                 "or no.");
}

}  // namespace
}  // namespace clb
