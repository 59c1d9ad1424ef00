// Copying the budget of the month before into the month shown.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class CopyBudgetTest : public Scenario {
protected:
    std::string Budget(const std::string& month)
    {
        return Rows("SELECT Category, CategoryGroup, Amount FROM Budget WHERE Year = " +
                    month.substr(0, 4) + " AND Period = " + month.substr(5) + " ORDER BY Category");
    }
    void Copy() { Menu("mnuE_Copy"); }
};

TEST_F(CopyBudgetTest, TheMonthBeforeIsCopiedWithItsGroupsAndAmounts)
{
    AddBudget("2006-2", "Food", "300", "Household");
    AddBudget("2006-2", "Wages", "-2000.1234", "Income");
    AddBudget("2006-1", "Travel", "7");
    Click("Budget");

    Copy();

    EXPECT_EQ(Budget("2006-3"), R"json(["(none)","(none)","0"] ["Food","Household","300"] )json"
                                R"json(["Wages","Income","-2000.1234"])json");
    EXPECT_EQ(Budget("2006-2"),
              R"json(["Food","Household","300"] ["Wages","Income","-2000.1234"])json");
    EXPECT_EQ(RowsOf("data").size(), 3U);
}

TEST_F(CopyBudgetTest, TheCommandCopiesTheMonthBeforeTheOneShownAcrossTheYearsEnd)
{
    now = "2006-01-20T12:00:00";
    AddBudget("2005-12", "Food", "300", "Household");
    Click("Budget");
    Events();

    Copy();

    EXPECT_EQ(Budget("2006-1"), R"json(["(none)","(none)","0"] ["Food","Household","300"])json");
    EXPECT_EQ(EventsOf("refresh").size(), 1U);
    EXPECT_EQ(Window()["totals"]["first"], "300.00");
}

TEST_F(CopyBudgetTest, ARemovedCategoryWithAnApostropheFailsAndCopiesNothing)
{
    AddAccount("B-1", "Bank", "Checking");
    AddBudget("2006-2", "Food", "300");
    AddBudget("2006-3", "Kids' toys", "50");
    AddTransaction("B-1", "2006-3", "-2", "Kids' toys");

    EXPECT_LT(ErrorOf({{"do", "menu"}, {"item", "mnuE_Copy"}}), 0);

    EXPECT_EQ(Budget("2006-3"), R"json(["Kids' toys","(none)","50"])json");
    EXPECT_EQ(Rows("SELECT Category FROM Trans"), R"(["Kids' toys"])");
    Click("Budget");
    EXPECT_EQ(RowsOf("data").size(), 1U);
}

TEST_F(CopyBudgetTest, TheMonthOfTheControlsCounts)
{
    AddBudget("2005-12", "Food", "300");
    Do({{"do", "set"}, {"control", "txtYear"}, {"to", "2006"}});
    Do({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 1}});

    Copy();

    EXPECT_EQ(Rows("SELECT Year, Period, Category FROM Budget ORDER BY Sequence"),
              R"json([2005,12,"Food"] [2006,1,"Food"] [2006,1,"(none)"])json");
}

TEST_F(CopyBudgetTest, AYearThatIsNotANumberFailsAndCopiesNothing)
{
    AddBudget("2006-2", "Food", "300");
    ErrorOf({{"do", "set"}, {"control", "txtYear"}, {"to", "soon"}});

    EXPECT_EQ(ErrorOf({{"do", "menu"}, {"item", "mnuE_Copy"}}), 13);

    EXPECT_EQ(Budget("2006-3"), "");
}

TEST_F(CopyBudgetTest, ARegisterShowsTheNewBookingsAndOffersTheCopiedCategories)
{
    AddAccount("B-1", "Bank", "Checking");
    AddBudget("2006-2", "Food", "300");
    AddBudget("2006-3", "Travel", "50");
    AddTransaction("B-1", "2006-3", "-2", "Travel");
    ShowAll();
    Click("Checking");
    Events();

    Copy();

    EXPECT_EQ(EventsOf("refresh").size(), 1U);
    EXPECT_EQ(Column(5), R"json("(none)")json");
    EXPECT_EQ(ToLine(Columns()[4]["values"]), R"json(["Food","(none)"])json");
}

TEST_F(CopyBudgetTest, AnUnsavedRowIsDiscarded)
{
    AddBudget("2006-2", "Food", "300");
    AddBudget("2006-3", "Food", "1");
    Click("Budget");
    Edit(2, 2, "77");

    Copy();

    EXPECT_EQ(Budget("2006-3"), R"json(["(none)","(none)","0"] ["Food","(none)","300"])json");
    EXPECT_EQ(Grid()["dirty"], false);
}

TEST_F(CopyBudgetTest, HeldRefreshesAreReleased)
{
    SetView("HoldRefresh", true);
    SetView("View", 2);
    Events();

    Copy();
    EXPECT_EQ(EventsOf("refresh").size(), 1U);

    SetView("Period", 4);
    EXPECT_EQ(EventsOf("refresh").size(), 1U);
}

TEST_F(CopyBudgetTest, ItsStatementsNameTheMonthsAndTheCategoryUnchanged)
{
    AddBudget("2006-2", "Food", "300");
    AddBudget("2006-3", "Travel", "50");
    Trace();

    Call("CopyBudget", {2006, 2, 2006, 3});

    EXPECT_EQ(Statements(),
              "SELECT * FROM Budget WHERE Year = 2006 AND Period = 2\n"
              "SELECT * FROM Budget WHERE Year = 2006 AND Period = 3\n"
              "SELECT Year, Period, Category, CategoryGroup, Amount FROM Budget WHERE "
              "Budget.Year = 2006 AND Budget.Period = 3 AND Budget.Category = '(none)'\n"
              "SELECT Category FROM Trans WHERE Year = 2006 AND Period = 3 AND Category = "
              "'Travel'\n");
}

}  // namespace
}  // namespace clb
