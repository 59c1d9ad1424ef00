// INSERT, UPDATE and DELETE.
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class WriteTest : public EngineTest {};

TEST_F(WriteTest, AQueryWithoutRowsGivesAClosedResult)
{
    const Recordset result = connection_.Execute("UPDATE Trans SET Year = 1");

    EXPECT_FALSE(result.IsOpen());
}

TEST_F(WriteTest, ColumnsThatAreNotNamedGetTheirDefaultOrNumber)
{
    RunAll({"INSERT INTO Account (AccountID) VALUES ('1')",
            "INSERT INTO Account (AccountID, Sequence) VALUES ('2', 40)",
            "INSERT INTO Account (AccountID) VALUES ('3')"});

    EXPECT_EQ(Rows("SELECT * FROM Account"),
              (Lines{"1|-|-|0|0|1|True", "2|-|-|0|0|40|True", "3|-|-|0|0|41|True"}));
}

TEST_F(WriteTest, ACountersNumberIsNotGivenAgain)
{
    RunAll({"INSERT INTO Account (AccountID) VALUES ('1')", "DELETE FROM Account",
            "INSERT INTO Account (AccountID) VALUES ('2')"});

    EXPECT_EQ(Rows("SELECT AccountID, Sequence FROM Account"), Lines{"2|2"});
}

TEST_F(WriteTest, RowsOfAQueryCanBeInserted)
{
    RunAll(
        {"INSERT INTO Budget (Year, Period, Category, Amount) VALUES (2006, 1, 'Food', 12.5)",
         "INSERT INTO Budget (Year, Period, Category, Amount) VALUES (2006, 1, 'Rent', 800)",
         "INSERT INTO Budget (Year, Period, Category, Amount) SELECT Year, Period + 1, Category, "
         "Amount * 2 FROM Budget WHERE Period = 1"});

    EXPECT_EQ(Rows("SELECT * FROM Budget"), (Lines{"1|2006|1|-|Food|12.5", "2|2006|1|-|Rent|800",
                                                   "3|2006|2|-|Food|25", "4|2006|2|-|Rent|1600"}));
    EXPECT_STREQ(
        ErrorOf([&] { Run("INSERT INTO Budget (Year) SELECT Year, Period FROM Budget"); }).what(),
        "Number of query values and destination fields are not the same.");
    EXPECT_EQ(
        ErrorOf([&] { Run("INSERT INTO Trans (PostDate) SELECT Year FROM Budget"); }).Number(),
        engine_errors::TypeMismatch);
    Run("INSERT INTO Trans (PostDate) SELECT '2006-01-3' & '1' FROM Budget WHERE Sequence = 1");
    Run("INSERT INTO Trans (PostDate) SELECT NULL FROM Budget WHERE Sequence = 1");
    EXPECT_EQ(Rows("SELECT PostDate FROM Trans"), (Lines{"2006-01-31", "-"}));
}

TEST_F(WriteTest, AnUpdateMayComputeFromTheRow)
{
    RunAll(
        {"INSERT INTO Trans (Sequence, Amount, Category) VALUES (1, 10.25, 'a')",
         "INSERT INTO Trans (Sequence, Amount, Category) VALUES (2, -3, 'b')",
         "UPDATE Trans SET Trans.Amount = Amount * 2 + 0.5, Category = Category & Sequence WHERE "
         "Trans.Sequence = 1"});

    EXPECT_EQ(Rows("SELECT Amount, Category FROM Trans"), (Lines{"21|a1", "-3|b"}));
}

TEST_F(WriteTest, AFailingQueryChangesNoRowAndKeepsWhatRanBefore)
{
    RunAll({"INSERT INTO Trans (Sequence, Category) VALUES (1, 'short')",
            "INSERT INTO Trans (Sequence, Category) VALUES (2, '" + std::string(50, 'x') + "')"});

    const auto error = ErrorOf(
        [&] { Run("UPDATE Trans SET Sequence = Sequence + 10, Category = Category & '!'"); });

    EXPECT_EQ(error.Number(), engine_errors::TextTooLong);
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), (Lines{"1", "2"}));
}

TEST_F(WriteTest, ARequiredFieldAndAUniqueOneAreGuarded)
{
    RunAll({"CREATE TABLE T (a LONG NOT NULL, b TEXT UNIQUE)", "INSERT INTO T VALUES (1, 'x')"});

    const auto missing = ErrorOf([&] { Run("INSERT INTO T (b) VALUES ('y')"); });
    const auto twice = ErrorOf([&] { Run("INSERT INTO T VALUES (2, 'x')"); });

    EXPECT_EQ(missing.Number(), engine_errors::Constraint);
    EXPECT_STREQ(missing.what(), "You must enter a value in the 'T.a' field.");
    EXPECT_EQ(twice.Number(), engine_errors::Constraint);
    EXPECT_STREQ(twice.what(),
                 "The changes were not made because they would create duplicate values in 'T.b'.");
    EXPECT_EQ(Rows("SELECT * FROM T"), Lines{"1|x"});
}

TEST_F(WriteTest, DeleteRemovesTheRowsThatMeetTheCondition)
{
    RunAll({"INSERT INTO Trans (Sequence) VALUES (1)", "INSERT INTO Trans (Sequence) VALUES (2)",
            "DELETE FROM Trans WHERE Trans.Sequence = 1"});
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), Lines{"2"});

    Run("DELETE * FROM Trans");

    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), Lines{});
}

TEST_F(WriteTest, RowsFollowTheirAccountsNumberUnlessAnotherAccountHasIt)
{
    RunAll({"INSERT INTO Account (AccountID, Description) VALUES ('1', 'a')",
            "INSERT INTO Account (AccountID, Description) VALUES ('1', 'b')",
            "INSERT INTO Trans (AccountID) VALUES ('1')",
            "UPDATE Account SET AccountID = '2' WHERE Description = 'a'"});
    EXPECT_EQ(Rows("SELECT AccountID FROM Trans"), Lines{"1"});

    Run("UPDATE Account SET AccountID = '3' WHERE Description = 'b'");

    EXPECT_EQ(Rows("SELECT AccountID FROM Trans"), Lines{"3"});
}

TEST_F(WriteTest, EveryQueryTextIsTraced)
{
    Lines traced;
    connection_.Trace([&](std::string_view sql) { traced.emplace_back(sql); });

    Run("UPDATE Trans SET Year = 1");
    Run("SELECT Year FROM Trans");
    Recordset rows = Opened("SELECT Period FROM Trans");
    rows.Requery();
    EXPECT_THROW(Run("nonsense"), EngineError);
    connection_.Trace({});
    Run("DELETE FROM Trans");

    EXPECT_EQ(traced, (Lines{"UPDATE Trans SET Year = 1", "SELECT Year FROM Trans",
                             "SELECT Period FROM Trans", "SELECT Period FROM Trans", "nonsense"}));
}

}  // namespace
}  // namespace clb
