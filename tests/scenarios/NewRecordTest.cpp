// Asking for a new record in every view, from the grid and from elsewhere.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class NewRecordTest : public Scenario, public testing::WithParamInterface<const char*> {
protected:
    NewRecordTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        AddTransaction("B-1", "2006-3", "-9");
        AddBudget("2006-3", "Food", "1");
        AddHolding("I-1", "ACME", "10");
        AddLoan("L-1", "Mortgage", "100", "10");
        ShowAll();
        Click(GetParam());
        line_ = RowsOf("new").at(0)["row"].dump();
    }

    std::string line_;
};

TEST_P(NewRecordTest, TheMenuOpensTheFirstCellOfTheNewRowLine)
{
    Menu("mnuE_New");

    EXPECT_EQ(Current(), line_ + "/1 editing");
    EXPECT_EQ(Window()["focus"], "Grid");
    EXPECT_EQ(Window()["status"], "Double click or press F2 to edit cell content.");
    EXPECT_EQ(Window()["menus"]["mnuE_New"]["enabled"], false);
}

TEST_P(NewRecordTest, TheButtonDoesTheSameFromTheMiddleOfTheGrid)
{
    Move(RowsOf("data").at(0)["row"], 2);

    Press("New");

    EXPECT_EQ(Current(), line_ + "/1 editing");
    EXPECT_EQ(Window()["toolbar"]["New"], false);
    EXPECT_EQ(Window()["toolbar"]["Delete"], false);
}

TEST_P(NewRecordTest, NothingIsStoredUntilSomethingIsTyped)
{
    Menu("mnuE_New");
    Do({{"do", "end"}});

    EXPECT_TRUE(Save());

    EXPECT_EQ(RowsOf("data").size(), GetParam() == std::string("Net Worth") ? 3U : 1U);
}

INSTANTIATE_TEST_SUITE_P(EveryView, NewRecordTest,
                         testing::Values("Net Worth", "Budget", "Bank", "Checking", "Broker",
                                         "House"),
                         [](const testing::TestParamInfo<const char*>& tested) {
                             return "View" + std::to_string(tested.index + 1);
                         });

}  // namespace
}  // namespace clb
