// What the window says about marked rows, and the balances beside the tree.
#include "data/ViewColumns.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

class MarkedSumTest : public testing::Test {
protected:
    MarkedSumTest()
    {
        books_.AddAccount("10", "Bank", "Checking");
        books_.AddAccount("20", "Bank", "Savings");
        books_.AddAccount("30", "Loan", "Car");
        books_.Execute(
            "UPDATE Account SET OpeningBalance = 100, CurrentBalance = -250 "
            "WHERE AccountID = '10'");
        for (const char* sequence : {"1", "2", "3"})
            books_.Execute(
                std::string("INSERT INTO Trans (AccountID, PostDate, Description, Amount, "
                            "[Year], Period, [Sequence], SubSequence) VALUES ('10', "
                            "#2006-03-01#, 'Row', -10.25, 2006, 3, ") +
                sequence + ", 0)");
        books_.window.View().BuildTree();
        books_.window.View().AccountID("10");
        books_.window.View().View(vwAccount);
    }
    void Mark(std::size_t row) { Grid().Marks().Toggle(Grid().Rows(), row, 0); }
    CVGrid& Grid() { return books_.window.Grid; }
    std::string Figure(const std::string& text)
    {
        const Tree& tree = books_.window.TreeView;
        for (std::int32_t node = 1; node <= tree.Count(); ++node)
            if (tree.Node(node).text == text)
                return tree.Node(node).figure;
        return "no node";
    }

    Books books_;
};

TEST_F(MarkedSumTest, TheSecondPanelCountsAndSumsTheMarkedRows)
{
    Mark(1);
    EXPECT_EQ(books_.window.notices.Text(), "1 row, -10.25");
    Mark(3);
    EXPECT_EQ(books_.window.notices.Text(), "2 rows, -20.50");
    EXPECT_FALSE(books_.window.notices.Warns());

    Grid().MoveTo(3, Register::Amount);
    Grid().ColumnValue(Register::Amount, Money::FromUnits(1));
    ASSERT_TRUE(Grid().Update());
    EXPECT_EQ(books_.window.notices.Text(), "2 rows, -9.25");

    books_.window.StepMonth(1);
    EXPECT_EQ(books_.window.notices.Text(), "");
}

TEST_F(MarkedSumTest, AWarningStaysAWarningBesideASum)
{
    books_.window.notices.Set("backup", "The backup failed.");
    Mark(1);

    EXPECT_EQ(books_.window.notices.Text(), "The backup failed.\n1 row, -10.25");
    EXPECT_TRUE(books_.window.notices.Warns());
}

TEST_F(MarkedSumTest, TheTreeShowsBalancesOfAccountsTypesAndAll)
{
    books_.window.Settle();

    EXPECT_EQ(Figure("Checking"), "-150.00");
    EXPECT_EQ(Figure("Savings"), "0.00");
    EXPECT_EQ(Figure("Bank"), "-150.00");
    EXPECT_EQ(Figure("Loan"), "0.00");
    EXPECT_EQ(Figure("Net Worth"), "-150.00");
    EXPECT_EQ(Figure("Budget"), "");
}

TEST_F(MarkedSumTest, TheTreesBalancesFollowASavedRow)
{
    Grid().MoveTo(1, Register::Amount);
    Grid().ColumnValue(Register::Amount, Money::FromUnits(1));
    ASSERT_TRUE(Grid().Update());
    books_.window.Settle();

    EXPECT_EQ(Figure("Checking"), "80.50");
}

}  // namespace
}  // namespace clb
