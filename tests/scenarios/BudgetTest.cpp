// The budget of a month: its lines, copying it, and booking transactions to another month.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class BudgetTest : public Scenario {
protected:
    std::string Budget(const std::string& month)
    {
        return Rows("SELECT Category, CategoryGroup, Amount FROM Budget WHERE Year = " +
                    month.substr(0, 4) + " AND Period = " + month.substr(5) + " ORDER BY Category");
    }
};

TEST_F(BudgetTest, AnExistingBudgetLineKeepsItsGroupAndAmount)
{
    Call("CreateBudgetEntry", {"Food", 2006, 3, "Household", "300"});
    Call("CreateBudgetEntry", {"Food", 2006, 3, "(none)", "0"});
    Call("CreateBudgetEntry", {"Kids' toys", 2006, 3, "(none)", "0"});

    EXPECT_EQ(Budget("2006-3"),
              R"json(["Food","Household","300"] ["Kids' toys","(none)","0"])json");
}

TEST_F(BudgetTest, CopyingABudgetMakesTheMonthsEqual)
{
    AddAccount("B-1", "Bank", "Checking");
    AddBudget("2006-2", "Food", "300", "Household");
    AddBudget("2006-2", "Rent", "900", "Home");
    AddBudget("2006-3", "Food", "1", "Old group");
    AddBudget("2006-3", "Travel", "50");
    AddTransaction("B-1", "2006-3", "-9", "Travel");
    AddTransaction("B-1", "2006-4", "-9", "Travel");

    Call("CopyBudget", {2006, 2, 2006, 3});

    EXPECT_EQ(
        Budget("2006-3"),
        R"json(["(none)","(none)","0"] ["Food","Household","300"] ["Rent","Home","900"])json");
    EXPECT_EQ(Rows("SELECT Category FROM Trans ORDER BY Period"),
              R"json(["(none)"] ["Travel"])json");
}

TEST_F(BudgetTest, CopyingAnEmptyMonthChangesNothing)
{
    AddBudget("2006-3", "(none)", "5");
    AddBudget("2006-3", "Food", "1");

    Call("CopyBudget", {2006, 2, 2006, 3});

    EXPECT_EQ(Budget("2006-3"), R"json(["(none)","(none)","5"] ["Food","(none)","1"])json");
}

TEST_F(BudgetTest, TheCommandCopiesTheMonthBeforeTheOneShownAcrossTheYearsEnd)
{
    now = "2006-01-20T12:00:00";
    AddBudget("2005-12", "Food", "300", "Household");
    Click("Budget");
    Events();

    Do({{"do", "menu"}, {"item", "mnuE_Copy"}});

    EXPECT_EQ(Budget("2006-1"), R"json(["(none)","(none)","0"] ["Food","Household","300"])json");
    EXPECT_EQ(EventsOf("refresh").size(), 1U);
    EXPECT_EQ(Window()["totals"]["first"], "300.00");
}

TEST_F(BudgetTest, MovingATransactionCrossesTheYearsEndBothWays)
{
    AddAccount("B-1", "Bank", "Checking");
    AddTransaction("B-1", "2006-1", "-9", "Food");
    Sql("UPDATE Trans SET SubSequence = 0");
    ShowAll();

    Call("MoveMonth", {1, 0, -1});
    EXPECT_EQ(Rows("SELECT Year, Period, PostDate FROM Trans"),
              R"json([2005,12,"2006-01-15"])json");

    Call("MoveMonth", {1, 0, 1});
    EXPECT_EQ(Rows("SELECT Year, Period FROM Trans"), "[2006,1]");
}

TEST_F(BudgetTest, TheMoveCommandRemovesTheRowFromTheRegisterAndMakesABudgetLine)
{
    AddAccount("B-1", "Bank", "Checking");
    AddTransaction("B-1", "2006-3", "-9", "Food");
    AddTransaction("B-1", "2006-3", "-1");
    ShowAll();
    Click("Checking");
    Call("MoveToRowKey", {1});
    Do({{"do", "focus"}, {"control", "Grid"}});

    Do({{"do", "menu"}, {"item", "mnuE_MoveNext"}});

    EXPECT_EQ(Rows("SELECT Sequence, Period FROM Trans ORDER BY Sequence"), "[1,4] [2,3]");
    EXPECT_EQ(Budget("2006-4"), R"json(["Food","(none)","0"])json");
    EXPECT_EQ(Grid()["rows"].size(), 2U);
    EXPECT_EQ(Window()["totals"]["first"], "-1.00");
}

TEST_F(BudgetTest, MovingATransactionThatIsNotThereFails)
{
    EXPECT_NE(ErrorOf({{"do", "call"}, {"op", "MoveMonth"}, {"args", {77, 0, 1}}}), 0);
}

TEST_F(BudgetTest, TheGridGroupsTheLinesAndCountsThem)
{
    AddBudget("2006-3", "Food", "300", "Household");
    AddBudget("2006-3", "Rent", "900", "Household");
    Click("Budget");

    const Json rows = Grid()["rows"];

    ASSERT_GE(rows.size(), 4U);
    EXPECT_EQ(ToLine(rows[0]), R"json({"row":1,"kind":"group","text":"Household (2 items)"})json");
    EXPECT_EQ(rows[1]["kind"], "data");
    EXPECT_EQ(rows[1]["values"][0], "Food");
    EXPECT_EQ(rows[3]["kind"], "footer");
    EXPECT_EQ(rows[3]["text"], "Total (budgeted/actual): $1200.00 / $0.00");
}

}  // namespace
}  // namespace clb
