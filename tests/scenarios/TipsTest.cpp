// The tips of the budget's cells.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class TipsTest : public Scenario {
protected:
    TipsTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
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
    EXPECT_EQ(Grid()["showToolTips"], false);
    Events();

    EXPECT_EQ(Tip(2, 1), nullptr);
    EXPECT_EQ(Asked(), 0U);

    Call("Refresh");
    EXPECT_EQ(Grid()["showToolTips"], true);
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
