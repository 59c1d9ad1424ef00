// The figures of the budget view that no table holds.

#include "data/BudgetFigures.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

/// March 2006 is shown. The account "out" takes no part in the budget.
class BudgetFiguresTest : public StoreTest {
protected:
    BudgetFiguresTest()
    {
        AddAccount("in", "Bank");
        AddAccount("out", "Bank");
        Execute("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = 'out'");
        AddBudget("Kids'' toys", "Kids''", "50", 2006, 3);
        AddBudget("Shoes", "Kids''", "20", 2006, 3);
        AddTransaction(1, "in", "-30", 2006, 3, "Kids'' toys");
        AddTransaction(2, "in", "-7.50", 2006, 3, "Shoes");
        AddTransaction(3, "in", "-2", 2006, 4, "Kids'' toys");
        AddTransaction(4, "out", "-99", 2006, 3, "Kids'' toys");
    }
    BudgetFigures Figures() { return {Store(), shown_}; }
};

TEST_F(BudgetFiguresTest, OnlyTheMonthsTransactionsOfAccountsInTheBudgetCount)
{
    EXPECT_EQ(Figures().ActualOf("Kids' toys"), Money::FromUnits(-30));
    EXPECT_EQ(Figures().ActualOf("Nothing"), Money());
}

TEST_F(BudgetFiguresTest, ACategorysTransactionsAreListed)
{
    Recordset spent = Figures().TransactionsOf("Kids' toys");

    ASSERT_EQ(spent.RecordCount(), 1);
    EXPECT_EQ(ToMoney(spent.Get("Amount")), Money::FromUnits(-30));
}

TEST_F(BudgetFiguresTest, AGroupIsSummedOverItsCategories)
{
    const BudgetFigures::GroupSums sums = Figures().SumsOf("Kids'");

    EXPECT_EQ(sums.budgeted, Money::FromUnits(70));
    EXPECT_EQ(sums.actual, Money::Parse("-37.50"));
}

}  // namespace
}  // namespace clb
