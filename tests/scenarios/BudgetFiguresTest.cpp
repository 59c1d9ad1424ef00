// The figures of the budget view that no table holds: actuals, differences and footers.

#include <sstream>

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class BudgetFiguresTest : public Scenario {
protected:
    BudgetFiguresTest() { AddAccount("B-1", "Bank", "Checking"); }

    /// Category, budgeted amount, actual amount and difference of every line.
    std::string Lines()
    {
        std::string text;
        for (const Json& row : RowsOf("data")) {
            const Json& cells = row["values"];
            text += (text.empty() ? "" : "; ") + cells[0].get<std::string>() + " " +
                    cells[1].get<std::string>() + " " + Plain(cells[6]) + " " + Plain(cells[7]);
        }
        return text;
    }
    std::string Texts(const std::string& kind)
    {
        std::string text;
        for (const Json& row : RowsOf(kind))
            text += (text.empty() ? "" : "; ") + row["text"].get<std::string>();
        return text;
    }
    /// A number as text without needless zeros.
    static std::string Plain(const Json& number)
    {
        std::ostringstream text;
        text.precision(15);
        text << number.get<double>();
        return text.str();
    }
};

TEST_F(BudgetFiguresTest, EveryGroupHasItsHeadingItsLinesAndItsFooter)
{
    AddBudget("2006-3", "Rent", "900", "Home");
    AddBudget("2006-3", "Food", "300", "Daily");
    AddBudget("2006-3", "Bus", "40.5", "Daily");
    AddBudget("2006-3", "Gifts", "5");
    AddTransaction("B-1", "2006-3", "-45.5", "Food");
    AddTransaction("B-1", "2006-3", "-2", "Bus");
    AddTransaction("B-1", "2006-3", "-950", "Rent");
    Click("Budget");

    const Json rows = Grid()["rows"];
    EXPECT_EQ(ToLine(rows[0]), R"json({"row":1,"kind":"group","text":"(none) (1 items)"})json");
    std::string kinds;
    for (const Json& row : rows)
        kinds += row["kind"].get<std::string>() + " ";
    EXPECT_EQ(kinds, "group data footer group data data footer group data footer new ");
    EXPECT_EQ(Texts("group"), "(none) (1 items); Daily (2 items); Home (1 items)");
    EXPECT_EQ(Texts("footer"),
              "Total (budgeted/actual): $5.00 / $0.00; "
              "Total (budgeted/actual): $340.50 / -$47.50; "
              "Total (budgeted/actual): $900.00 / -$950.00");
    EXPECT_EQ(Lines(),
              "Gifts 5 0 -5; Bus 40.5 -2 -42.5; Food 300 -45.5 -345.5; "
              "Rent 900 -950 -1850");
}

TEST_F(BudgetFiguresTest, FiguresAreReadAgainEveryTime)
{
    AddBudget("2006-3", "Food", "300");
    Click("Budget");
    EXPECT_EQ(Lines(), "Food 300 0 -300");

    AddTransaction("B-1", "2006-3", "-5", "Food");

    EXPECT_EQ(Lines(), "Food 300 -5 -305");
    EXPECT_EQ(Texts("footer"), "Total (budgeted/actual): $300.00 / -$5.00");
}

TEST_F(BudgetFiguresTest, TheFiguresFollowTheViewsMonthNotTheControls)
{
    AddBudget("2007-8", "Food", "300");
    AddTransaction("B-1", "2007-8", "-5", "Food");
    Click("Budget");

    SetView("HoldRefresh", true);
    SetView("Year", 2007);
    SetView("Period", 8);
    SetView("HoldRefresh", false);

    EXPECT_EQ(Lines(), "Food 300 -5 -305");
    EXPECT_EQ(Window()["period"], 3);
}

TEST_F(BudgetFiguresTest, AnEditedLineShowsItsDifferenceBeforeItIsSaved)
{
    AddBudget("2006-3", "Food", "300");
    AddTransaction("B-1", "2006-3", "-5", "Food");
    Click("Budget");

    Edit(2, 2, "100");

    EXPECT_EQ(Lines(), "Food 100 -5 -105");
    EXPECT_EQ(Texts("footer"), "Total (budgeted/actual): $300.00 / -$5.00");
}

TEST_F(BudgetFiguresTest, ALineOfAnotherGroupMovesBelowItsHeading)
{
    AddBudget("2006-3", "Bus", "40", "Daily");
    AddBudget("2006-3", "Food", "300", "Daily");
    Click("Budget");

    EXPECT_TRUE(Edit(2, 6, "Travel"));
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT Category, CategoryGroup FROM Budget ORDER BY Sequence"),
              R"(["Bus","Travel"] ["Food","Daily"])");
    Call("Refresh");
    EXPECT_EQ(Texts("group"), "Daily (1 items); Travel (1 items)");
}

TEST_F(BudgetFiguresTest, TheNewRowLineIsLastAndHasNoFigures)
{
    AddBudget("2006-3", "Food", "300");
    Click("Budget");

    const Json rows = Grid()["rows"];

    EXPECT_EQ(rows.back()["kind"], "new");
    EXPECT_EQ(ToLine(rows.back()["values"]), "[null,null,null,null,null,null,null,null]");
}

TEST_F(BudgetFiguresTest, OtherViewsFetchNoFigures)
{
    AddTransaction("B-1", "2006-3", "-5", "Food");
    ShowAll();
    for (const char* node : {"Net Worth", "Bank", "Checking"}) {
        Click(node);
        Grid();
        for (const std::string& event : Story())
            EXPECT_NE(event.rfind("Fetch", 0), 0U) << node << ": " << event;
    }
}

}  // namespace
}  // namespace clb
