// A fresh book greets with three ways to begin.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/EmptyHint.h"
#include "data/ViewColumns.h"
#include "tests/support/Books.h"
#include "views/MenuNames.h"

namespace clb {
namespace {

using testing::ElementsAre;

class GreetingTest : public testing::Test {
protected:
    static bool Greets(frmController& window)
    {
        const auto hint = HintFor(window);
        return hint && hint->greets;
    }
    void Press(const char* item)
    {
        books_.window.menus.Find(item)->Press();
        books_.window.Settle();
    }
    /// Types an account into the line for a new row and leaves it.
    void EnterAccount()
    {
        CVGrid& grid = books_.window.Grid;
        Press(command_name::kNew);
        grid.Editing(false);
        grid.ColumnValue(NetWorth::Description, std::string("Purse"));
        grid.ColumnValue(NetWorth::Type, std::string("Cash"));
        grid.ColumnValue(NetWorth::AccountID, std::string("P1"));
        ASSERT_TRUE(grid.Update());
        books_.window.Settle();
    }

    Books books_;
};

TEST_F(GreetingTest, AFreshBookOffersThreeWays)
{
    const auto hint = HintFor(books_.window);

    ASSERT_TRUE(hint && hint->greets);
    EXPECT_EQ(hint->title, "Welcome to Corvane Ledgerbook");
    std::vector<std::string> ways;
    for (const EmptyHint::Way& way : hint->ways) {
        ways.push_back(way.caption + ": " + way.item);
        EXPECT_FALSE(way.icon.empty() || way.explanation.empty()) << way.caption;
    }
    EXPECT_THAT(ways, ElementsAre("Import a statement: mnuF_Import", "Make an account: mnuE_New",
                                  "Look at the demo: demo"));
}

TEST_F(GreetingTest, ItGoesWithTheFirstAccountAndComesBackWhenThatIsUndone)
{
    EnterAccount();
    EXPECT_EQ(HintFor(books_.window), std::nullopt);

    Press(command_name::kUndo);
    EXPECT_TRUE(Greets(books_.window));

    Press(command_name::kRedo);
    EXPECT_EQ(HintFor(books_.window), std::nullopt);
}

TEST_F(GreetingTest, ABookWithTransactionsButNoAccountIsNotFresh)
{
    books_.Execute(
        "INSERT INTO Trans (AccountID, Amount, Sequence, PostDate, [Year], Period) VALUES "
        "('gone', 5, 1, #2006-03-01#, 2006, 3)");

    const auto hint = HintFor(books_.window);

    ASSERT_TRUE(hint);
    EXPECT_FALSE(hint->greets);
    EXPECT_EQ(hint->title, "No accounts yet");
}

TEST_F(GreetingTest, OtherViewsKeepTheirHint)
{
    books_.window.View().View(vwBudget);

    const auto hint = HintFor(books_.window);

    ASSERT_TRUE(hint);
    EXPECT_EQ(hint->title, "No budget for March 2006");
}

TEST_F(GreetingTest, ADrivenWindowDoesNotGreet)
{
    Ports ports = books_.PortsOver(books_.folder.Path());
    ports.showsResults = false;
    frmController driven(ports, WindowMetrics());
    driven.Load();

    const auto hint = HintFor(driven);

    ASSERT_TRUE(hint);
    EXPECT_EQ(hint->title, "No accounts yet");
    EXPECT_FALSE(hint->greets);
    EXPECT_EQ(hint->ways.size(), 2U);
}

}  // namespace
}  // namespace clb
