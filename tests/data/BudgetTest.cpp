#include "base/RuntimeError.h"
#include "data/ViewColumns.h"
#include "engine/storage/EngineError.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

using Texts = std::vector<std::string>;

class BudgetTest : public StoreTest {
protected:
    Texts BudgetOf(std::int32_t year, std::int32_t period)
    {
        return Rows("SELECT Category, CategoryGroup, Amount FROM Budget WHERE Year = " +
                    std::to_string(year) + " AND Period = " + std::to_string(period) +
                    " ORDER BY Category");
    }
    std::string MonthOf(std::int32_t sequence, std::int32_t piece)
    {
        return Rows("SELECT Year, Period FROM Trans WHERE Sequence = " + std::to_string(sequence) +
                    " AND SubSequence = " + std::to_string(piece))
            .at(0);
    }
    void ShowRegister()
    {
        shown_.view = vwAccount;
        shown_.account = "10";
        Store().GetRows();
    }
};

TEST_F(BudgetTest, AnExistingLineIsNeverOverwritten)
{
    Store().CreateBudgetEntry("Kid's", 2006, 3, "Family", Money::Parse("50"));
    Store().CreateBudgetEntry("Kid's", 2006, 3, "Other", Money::Parse("70"));
    Store().CreateBudgetEntry("Kid's", 2006, 4, "Family", Money::Parse("60"));

    EXPECT_EQ(BudgetOf(2006, 3), (Texts{"Kid's|Family|50"}));
    EXPECT_EQ(BudgetOf(2006, 4), (Texts{"Kid's|Family|60"}));
}

TEST_F(BudgetTest, CopyingGivesTheSourcesCategoriesGroupsAndAmounts)
{
    AddBudget("Food", "Living", "200", 2006, 2);
    AddBudget("Rent", "Home", "700", 2006, 2);
    AddBudget("Food", "Old", "1", 2006, 3);
    AddBudget("Fuel", "Car", "90", 2006, 3);
    AddTransaction(1, "10", "-5", 2006, 3, "Fuel");
    AddTransaction(2, "10", "-5", 2006, 4, "Fuel");

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(BudgetOf(2006, 3), (Texts{"(none)|(none)|0", "Food|Living|200", "Rent|Home|700"}));
    EXPECT_EQ(Rows("SELECT Sequence, Category FROM Trans ORDER BY Sequence"),
              (Texts{"1|(none)", "2|Fuel"}));
    EXPECT_EQ(BudgetOf(2006, 2), (Texts{"Food|Living|200", "Rent|Home|700"}));
}

TEST_F(BudgetTest, AnEmptySourceMonthChangesNothing)
{
    AddBudget("Fuel", "Car", "90", 2006, 3);
    AddBudget("(none)", "(none)", "0", 2006, 3);

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(BudgetOf(2006, 3), (Texts{"(none)|(none)|0", "Fuel|Car|90"}));
}

TEST_F(BudgetTest, CopyingIntoAnEmptyMonthAddsTheSetAsideLine)
{
    AddBudget("Food", "Living", "200", 2005, 12);

    Store().CopyBudget(2005, 12, 2006, 1);

    EXPECT_EQ(BudgetOf(2006, 1), (Texts{"(none)|(none)|0", "Food|Living|200"}));
}

TEST_F(BudgetTest, AnExistingLineGetsTheCopiedGroupAndAmountEvenIfTheyAreNone)
{
    AddBudget("Food", "(none)", "0", 2006, 2);
    AddBudget("Food", "Household", "300", 2006, 3);

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(BudgetOf(2006, 3), (Texts{"(none)|(none)|0", "Food|(none)|0"}));
}

TEST_F(BudgetTest, TheSetAsideLineIsCopiedToo)
{
    AddBudget("(none)", "Rest", "5", 2006, 2);
    AddBudget("(none)", "(none)", "12", 2006, 3);

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(BudgetOf(2006, 3), Texts{"(none)|Rest|5"});
}

TEST_F(BudgetTest, CopyingAgainChangesNothing)
{
    AddBudget("Food", "Household", "300", 2006, 2);
    AddBudget("Kids'' toys", "Kids''", "20", 2006, 2);
    Store().CopyBudget(2006, 2, 2006, 3);
    const Texts copied = Rows("SELECT * FROM Budget");

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(Rows("SELECT * FROM Budget"), copied);
}

TEST_F(BudgetTest, ACategoryListedTwiceBecomesOneLineWithTheLastAmount)
{
    AddBudget("Food", "(none)", "1", 2006, 2);
    AddBudget("Food", "(none)", "2", 2006, 2);

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(BudgetOf(2006, 3), (Texts{"(none)|(none)|0", "Food|(none)|2"}));
}

TEST_F(BudgetTest, CategoriesThatDifferInCaseAreTwo)
{
    AddBudget("Food", "(none)", "1", 2006, 2);
    AddBudget("food", "(none)", "2", 2006, 3);

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(BudgetOf(2006, 3), (Texts{"(none)|(none)|0", "Food|(none)|1"}));
}

TEST_F(BudgetTest, TransactionsOfARemovedCategoryAreSetAsideInThatMonthOnly)
{
    AddAccount("10", "Bank");
    AddAccount("30", "Credit Card");
    Execute("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = '30'");
    AddBudget("Food", "(none)", "300", 2006, 2);
    AddBudget("Travel", "(none)", "50", 2006, 3);
    AddTransaction(1, "10", "-1", 2006, 2, "Travel");
    AddTransaction(2, "10", "-2", 2006, 3, "Travel");
    AddTransaction(3, "30", "-3", 2006, 3, "Travel");
    AddTransaction(4, "10", "-4", 2006, 3, "Food");
    AddTransaction(5, "10", "-5", 2005, 3, "Travel");

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(Rows("SELECT Sequence, Category FROM Trans ORDER BY Sequence"),
              (Texts{"1|Travel", "2|(none)", "3|(none)", "4|Food", "5|Travel"}));
}

TEST_F(BudgetTest, TheTargetsOwnSetAsideLineStays)
{
    AddBudget("Food", "Living", "200", 2006, 2);
    AddBudget("(none)", "Mine", "5", 2006, 3);

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(BudgetOf(2006, 3), (Texts{"(none)|Mine|5", "Food|Living|200"}));
}

/// Symptom: a category with two quotes turned the statement into another one, which booked all
/// transactions of the month, or those of another category, to "(none)".
TEST_F(BudgetTest, ARemovedCategoryWithAQuoteIsTheEnginesErrorAndChangesNothing)
{
    for (const char* gone : {"Kid's", "Kids''", "a''b", "x' OR 'a'='a", "'"}) {
        SCOPED_TRACE(gone);
        Execute("DELETE FROM Budget");
        Execute("DELETE FROM Trans");
        AddBudget("Food", "Living", "200", 2006, 2);
        AddBudget("Food", "Old", "1", 2006, 3);
        AddBudget("Fuel", "Car", "90", 2006, 3);
        AddBudget(clsDatabase::ToSqlString(gone), "Family", "5", 2006, 3);
        AddTransaction(1, "10", "-5", 2006, 3, "Fuel");
        AddTransaction(2, "10", "-5", 2006, 3, "a''b");
        const Texts lines = BudgetOf(2006, 3);

        try {
            Store().CopyBudget(2006, 2, 2006, 3);
            ADD_FAILURE() << "it was copied";
        } catch (const EngineError& error) {
            EXPECT_EQ(error.Number(), engine_errors::Syntax);
            EXPECT_STREQ(error.what(), "Syntax error near ''' in the statement.");
        }

        EXPECT_EQ(BudgetOf(2006, 3), lines);
        EXPECT_EQ(Rows("SELECT Category FROM Trans ORDER BY Sequence"), (Texts{"Fuel", "a'b"}));
    }
}

TEST_F(BudgetTest, CategoriesWithQuotesThatStayAreCopied)
{
    AddBudget("Kid''s", "Family", "5", 2006, 2);
    AddBudget("Dad''s", "Family", "7", 2006, 2);
    AddBudget("Kid''s", "Old", "1", 2006, 3);
    AddBudget("Fuel", "Car", "90", 2006, 3);

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(BudgetOf(2006, 3), (Texts{"(none)|(none)|0", "Dad's|Family|7", "Kid's|Family|5"}));
}

TEST_F(BudgetTest, AnEmptySourceMonthKeepsACategoryWithAQuote)
{
    AddBudget("Kid''s", "Family", "5", 2006, 3);

    Store().CopyBudget(2006, 2, 2006, 3);

    EXPECT_EQ(BudgetOf(2006, 3), Texts{"Kid's|Family|5"});
}

TEST_F(BudgetTest, ATransactionMovesAcrossYearEnds)
{
    AddTransaction(1, "10", "5", 2006, 1);
    ShowRegister();
    row_.cells[Register::Category] = std::string("Food");

    Store().MoveMonth(1, 0, -1);
    EXPECT_EQ(MonthOf(1, 0), "2005|12");
    EXPECT_EQ(BudgetOf(2005, 12), (Texts{"Food|(none)|0"}));
    Store().MoveMonth(1, 0, 1);
    EXPECT_EQ(MonthOf(1, 0), "2006|1");
}

TEST_F(BudgetTest, AnExistingLineOfTheOtherMonthIsKept)
{
    AddTransaction(1, "10", "-1", 2006, 3, "Kids'' toys");
    AddBudget("Kids'' toys", "Kids''", "50", 2006, 4);
    ShowRegister();
    row_.cells[Register::Category] = std::string("Kids' toys");

    Store().MoveMonth(1, 0, 1);

    EXPECT_EQ(BudgetOf(2006, 4), Texts{"Kids' toys|Kids'|50"});
}

TEST_F(BudgetTest, AMissingCategoryCountsAsTheEmptyOne)
{
    AddTransaction(1, "10", "-1", 2006, 3);
    Execute("UPDATE Trans SET Category = NULL");
    ShowRegister();
    row_.cells[Register::Category] = Null{};

    Store().MoveMonth(1, 0, 1);

    EXPECT_EQ(BudgetOf(2006, 4), Texts{"|(none)|0"});
    EXPECT_EQ(Rows("SELECT Period FROM Trans WHERE Category IS NULL"), Texts{"4"});
}

TEST_F(BudgetTest, AnyDirectionButOneIsBackwards)
{
    AddTransaction(1, "10", "-1", 2006, 3);
    ShowRegister();

    for (const int direction : {0, 2, -5})
        Store().MoveMonth(1, 0, direction);

    EXPECT_EQ(MonthOf(1, 0), "2005|12");
}

TEST_F(BudgetTest, NoTransactionMovesOutOfTheLastYear)
{
    AddTransaction(1, "10", "5", 2147483647, 12);
    Execute("INSERT INTO Trans (Sequence, Year, Period) VALUES (2, -2147483647 - 1, 1)");
    ShowRegister();

    EXPECT_THROW(Store().MoveMonth(1, 0, 1), RuntimeError);
    EXPECT_THROW(Store().MoveMonth(2, 0, -1), RuntimeError);

    EXPECT_EQ(MonthOf(1, 0), "2147483647|12");
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), Texts{});
}

TEST_F(BudgetTest, OnlyTheNamedPieceMoves)
{
    AddTransaction(1, "10", "5", 2006, 3);
    Execute(
        "INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Amount, Year, Period) "
        "VALUES (1, 1, '10', #2006-03-05#, 2, 2006, 3)");
    ShowRegister();

    Store().MoveMonth(1, 1, 1);

    EXPECT_EQ(MonthOf(1, 0), "2006|3");
    EXPECT_EQ(MonthOf(1, 1), "2006|4");
    EXPECT_EQ(Rows("SELECT PostDate FROM Trans WHERE SubSequence = 1"), (Texts{"2006-03-05"}));
}

TEST_F(BudgetTest, TheGridsRowsAreReadAgain)
{
    AddTransaction(1, "10", "5", 2006, 3);
    ShowRegister();
    Recordset& rows = Store().GetRows();
    ASSERT_EQ(rows.RecordCount(), 1);

    Store().MoveMonth(1, 0, 1);

    EXPECT_EQ(rows.RecordCount(), 0);
}

TEST_F(BudgetTest, AMissingPieceIsTheEnginesError)
{
    ShowRegister();

    EXPECT_THROW(Store().MoveMonth(9, 0, 1), EngineError);
    EXPECT_TRUE(Rows("SELECT Category FROM Budget").empty());
}

}  // namespace
}  // namespace clb
