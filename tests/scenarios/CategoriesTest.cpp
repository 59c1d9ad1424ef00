// The list of categories that a register offers.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class CategoriesTest : public Scenario {
protected:
    CategoriesTest() { AddAccount("B-1", "Bank", "Checking"); }

    std::string Offered() { return ToLine(Columns()[4]["values"]); }
    std::string BudgetOfMarch()
    {
        return Rows(
            "SELECT Category, CategoryGroup, Amount FROM Budget WHERE Year = 2006 AND "
            "Period = 3 ORDER BY Sequence");
    }
    void ShowChecking()
    {
        Call("BuildTree");
        Click("Checking");
    }
};

TEST_F(CategoriesTest, TheListHoldsTheCategoriesOfTheShownMonth)
{
    AddBudget("2006-3", "Rent", "900");
    AddBudget("2006-3", "Food", "300");
    AddBudget("2006-4", "Travel", "1");
    AddBudget("2005-3", "Fuel", "1");

    ShowChecking();

    EXPECT_EQ(Offered(), R"json(["Rent","Food"])json");
    const Json category = Columns()[4];
    EXPECT_EQ(ToLine(category["popup"]), R"json({"type":3,"rows":5,"width":2000})json");
}

TEST_F(CategoriesTest, AMonthWithoutBudgetLinesHasAnEmptyList)
{
    AddBudget("2006-4", "Travel", "1");

    ShowChecking();

    EXPECT_EQ(Offered(), "[]");
}

TEST_F(CategoriesTest, AnotherMonthBringsItsOwnList)
{
    AddBudget("2006-3", "Food", "300");
    AddBudget("2006-4", "Travel", "1");
    AddBudget("2007-4", "Fuel", "1");
    ShowChecking();

    Press("Forward");
    EXPECT_EQ(Offered(), R"json(["Travel"])json");

    Do({{"do", "set"}, {"control", "txtYear"}, {"to", "2007"}});
    EXPECT_EQ(Offered(), R"json(["Fuel"])json");
}

TEST_F(CategoriesTest, TheMonthIsReadFromTheControlsNotFromTheView)
{
    AddBudget("2006-3", "Food", "300");
    AddBudget("2007-8", "Travel", "1");
    ShowChecking();

    SetView("HoldRefresh", true);
    SetView("Period", 8);
    SetView("Year", 2007);
    SetView("HoldRefresh", false);

    EXPECT_EQ(Window()["period"], 3);
    EXPECT_EQ(Window()["year"], "2006");
    EXPECT_EQ(Offered(), R"json(["Food"])json");
}

TEST_F(CategoriesTest, ASavedNewCategoryJoinsTheListAndTheBudget)
{
    AddBudget("2006-3", "Food", "300", "Household");
    AddTransaction("B-1", "2006-3", "-9");
    ShowChecking();

    EXPECT_TRUE(Edit(1, 5, "Kids' toys"));
    EXPECT_EQ(Offered(), R"json(["Food"])json");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Offered(), R"json(["Food","Kids' toys"])json");
    EXPECT_EQ(BudgetOfMarch(), R"json(["Food","Household","300"] ["Kids' toys","(none)","0"])json");
}

TEST_F(CategoriesTest, AKnownCategoryIsNeitherListedNorBudgetedTwice)
{
    AddBudget("2006-3", "Food", "300", "Household");
    AddTransaction("B-1", "2006-3", "-9");
    ShowChecking();

    Edit(1, 5, "Food");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Offered(), R"json(["Food"])json");
    EXPECT_EQ(BudgetOfMarch(), R"json(["Food","Household","300"])json");
}

TEST_F(CategoriesTest, ARowWithoutCategoryIsBookedToNone)
{
    AddTransaction("B-1", "2006-3", "-9", "Food");
    ShowChecking();

    Edit(1, 5, "");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT Category FROM Trans"), R"json(["(none)"])json");
    EXPECT_EQ(BudgetOfMarch(), R"json(["(none)","(none)","0"])json");
    EXPECT_EQ(Offered(), R"json(["(none)"])json");
}

TEST_F(CategoriesTest, TheBudgetLineBelongsToTheViewedMonthForAnyDate)
{
    AddTransaction("B-1", "2006-3", "-9", "Food");
    ShowChecking();

    Edit(1, 1, "2006-07-01");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT Year, Period, Category FROM Budget"), R"json([2006,3,"Food"])json");
    EXPECT_EQ(Rows("SELECT PostDate, Year, Period FROM Trans"), R"json(["2006-07-01",2006,3])json");
}

TEST_F(CategoriesTest, ARefreshReadsTheListAgain)
{
    AddBudget("2006-3", "Food", "300");
    ShowChecking();
    AddBudget("2006-3", "Rent", "900");

    EXPECT_EQ(Offered(), R"json(["Food"])json");
    Call("Refresh");
    EXPECT_EQ(Offered(), R"json(["Food","Rent"])json");
}

}  // namespace
}  // namespace clb
