// The tips of the budget's cells.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class TipsTest : public Scenario {
protected:
    TipsTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("C-1", "Cash", "Wallet");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        Sql("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = 'C-1'");
        AddBudget("2006-3", "Food", "300");
    }

    /// How often a tip was requested since the last call.
    std::size_t Asked()
    {
        std::size_t count = 0;
        for (const Json& event : EventsOf("grid"))
            if (event["name"] == "FetchCellTip")
                ++count;
        return count;
    }
};

TEST_F(TipsTest, WithoutTransactionsTheTipCountsNoneAndListsNothing)
{
    Click("Budget");

    EXPECT_EQ(Tip(2, 1), "Number of transactions: 0");
}

TEST_F(TipsTest, EveryTransactionIsListedAfterAnEmptyLine)
{
    AddTransaction("B-1", "2006-3", "-45.5", "Food");
    AddTransaction("B-1", "2006-3", "1234.565", "Food");
    Sql("UPDATE Trans SET Description = 'Baker''s', PostDate = #2006-02-28# WHERE Sequence = 2");
    Click("Budget");

    EXPECT_EQ(Tip(2, 1),
              "Number of transactions: 2"
              "\r\n\r\nDate: 2006-03-15\r\nDescription: Shop\r\nAmount: -$45.50"
              "\r\n\r\nDate: 2006-02-28\r\nDescription: Baker's\r\nAmount: $1234.57");
}

TEST_F(TipsTest, OnlyTheMonthsTransactionsOfTheBudgetsAccountsAreListed)
{
    AddTransaction("C-1", "2006-3", "-1", "Food");
    AddTransaction("B-1", "2006-4", "-2", "Food");
    AddTransaction("B-1", "2006-3", "-3", "Travel");
    AddTransaction("gone", "2006-3", "-4", "Food");
    Click("Budget");

    EXPECT_EQ(Tip(2, 1), "Number of transactions: 0");
}

TEST_F(TipsTest, AMissingDateAndDescriptionLeaveTheirPlaceEmpty)
{
    Sql("INSERT INTO Trans (Sequence, AccountID, Year, Period, Amount, Category) VALUES (1, "
        "'B-1', 2006, 3, 0, 'Food')");
    Click("Budget");

    EXPECT_EQ(Tip(2, 1),
              "Number of transactions: 1\r\n\r\nDate: \r\nDescription: \r\nAmount: $0.00");
}

TEST_F(TipsTest, AnyNumberOfTransactionsIsListed)
{
    std::string expected = "Number of transactions: 60";
    for (int count = 0; count < 60; ++count) {
        AddTransaction("B-1", "2006-3", "-1", "Food");
        expected += "\r\n\r\nDate: 2006-03-15\r\nDescription: Shop\r\nAmount: -$1.00";
    }
    Click("Budget");

    EXPECT_EQ(Tip(2, 1), expected);
}

TEST_F(TipsTest, EveryCellOfTheLineShowsTheSameTip)
{
    Click("Budget");

    for (const int column : {1, 2, 6, 7, 8})
        EXPECT_EQ(Tip(2, column), "Number of transactions: 0") << column;
}

TEST_F(TipsTest, HeadingsFootersAndTheNewRowLineHaveNone)
{
    Click("Budget");
    Events();

    EXPECT_EQ(Tip(1, 1), nullptr);
    EXPECT_EQ(Tip(3, 1), nullptr);
    EXPECT_EQ(Tip("new", 1), nullptr);
    EXPECT_EQ(Asked(), 0U);
}

TEST_F(TipsTest, OtherViewsHaveNone)
{
    AddTransaction("B-1", "2006-3", "-1", "Food");
    AddHolding("I-1", "ACME", "1");
    AddLoan("L-1", "Mortgage", "10", "1");
    ShowAll();

    for (const char* node : {"Net Worth", "Bank", "Checking", "Broker", "House"}) {
        Click(node);
        EXPECT_EQ(Tip(1, 1), nullptr) << node;
        EXPECT_EQ(Tip("new", 1), nullptr) << node;
    }
}

TEST_F(TipsTest, SwitchedOffNothingIsFetchedUntilTheNextRefresh)
{
    Click("Budget");
    Call("ShowToolTips", {false});
    Events();

    EXPECT_EQ(Tip(2, 1), nullptr);
    EXPECT_EQ(Asked(), 0U);

    Call("Refresh");
    Events();
    EXPECT_EQ(Tip(2, 1), "Number of transactions: 0");
    EXPECT_EQ(Asked(), 1U);
}

TEST_F(TipsTest, ATipMovesNothing)
{
    AddBudget("2006-3", "Rent", "900");
    Click("Budget");
    Edit(2, 2, "1");

    Tip(3, 1);

    EXPECT_EQ(Current(), "2/2 dirty");
}

}  // namespace
}  // namespace clb
