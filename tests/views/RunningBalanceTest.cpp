// The balance after each transaction of a register.
#include "data/ViewColumns.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

class RunningBalanceTest : public testing::Test {
protected:
    RunningBalanceTest()
    {
        books_.AddAccount("10", "Bank", "Checking");
        books_.Execute("UPDATE Account SET OpeningBalance = 100");
        Add(1, 2, 27, "-20.0001");
        Add(2, 3, 1, "-4.50");
        Add(3, 3, 5, "1000");
        Add(4, 3, 5, "-0.01");
        Show();
    }
    void Add(int sequence, int month, int day, const std::string& amount)
    {
        books_.Execute(
            "INSERT INTO Trans (AccountID, PostDate, Description, Amount, [Year], Period, "
            "[Sequence], SubSequence) VALUES ('10', #2006-0" +
            std::to_string(month) + "-" + (day < 10 ? "0" : "") + std::to_string(day) +
            "#, 'Row', " + amount + ", 2006, " + std::to_string(month) + ", " +
            std::to_string(sequence) + ", 0)");
    }
    void Show()
    {
        books_.window.View().AccountID("10");
        books_.window.View().View(vwAccount);
    }
    CVGrid& Grid() { return books_.window.Grid; }
    std::string Beside(std::size_t row) { return Grid().Beside()->text(row); }

    Books books_;
};

TEST_F(RunningBalanceTest, EachRowHasTheBalanceAfterIt)
{
    EXPECT_EQ(Beside(1), "1,075.49");
    EXPECT_EQ(Beside(2), "1,075.50");
    EXPECT_EQ(Beside(3), "75.50");
    EXPECT_EQ(Beside(4), "");
    EXPECT_EQ(Grid().Beside()->caption, "Balance");
}

TEST_F(RunningBalanceTest, ItFollowsASavedARemovedAndANewRow)
{
    Grid().MoveTo(3, Register::Amount);
    Grid().ColumnValue(Register::Amount, Money::FromUnits(-5));
    ASSERT_TRUE(Grid().Update());
    EXPECT_EQ(Beside(3), "75.00");
    EXPECT_EQ(Beside(1), "1,074.99");

    books_.window.window.Focus(Grid());
    Grid().MoveTo(2, Register::Amount);
    books_.messages.answers.push_back(BoxAnswer::Yes);
    ASSERT_TRUE(Grid().Delete());
    EXPECT_EQ(Beside(1), "74.99");

    Grid().MoveTo(Grid().Rows().NewRow(), Register::PostDate);
    Grid().ColumnValue(Register::PostDate, *Date::Of(2006, 3, 3));
    Grid().ColumnValue(Register::Description, std::string("Between"));
    Grid().ColumnValue(Register::Amount, Money::FromUnits(1));
    ASSERT_TRUE(Grid().Update());
    EXPECT_EQ(Beside(Grid().Row()), "76.00");
    EXPECT_EQ(books_.window.txtTotal.Text(), "75.99");
}

TEST_F(RunningBalanceTest, AnotherOrderOfTheRowsChangesNoBalance)
{
    ASSERT_TRUE(Grid().SortBy({Register::Amount, false}));

    EXPECT_EQ(ToText(Grid().CellValue(1, Register::Amount)), "-4.5");
    EXPECT_EQ(Beside(1), "75.50");
    EXPECT_EQ(Beside(3), "1,075.50");
}

TEST_F(RunningBalanceTest, AReloadOfTheViewKeepsTheOrderAndAnotherViewEndsIt)
{
    ASSERT_TRUE(Grid().SortBy({Register::Amount, false}));

    books_.window.View().Refresh();
    EXPECT_EQ(ToText(Grid().CellValue(1, Register::Amount)), "-4.5");
    EXPECT_EQ(Grid().Row(), 1U);

    books_.window.View().View(vwNetWorth);
    EXPECT_FALSE(Grid().Beside());
    EXPECT_EQ(Grid().DayColumn(), 0);
    Show();
    EXPECT_EQ(ToText(Grid().CellValue(1, Register::Amount)), "-0.01");
}

}  // namespace
}  // namespace clb
