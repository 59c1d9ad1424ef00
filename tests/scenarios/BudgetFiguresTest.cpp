// The figures of the budget view that no table holds: actuals, differences and footers.

#include <sstream>

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class BudgetFiguresTest : public Scenario {
protected:
    BudgetFiguresTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("V-1", "Credit Card", "Visa");
        AddAccount("C-1", "Cash", "Wallet");
        Sql("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = 'C-1'");
    }

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

TEST_F(BudgetFiguresTest, ACategoryWithoutTransactionsDiffersByItsBudget)
{
    AddBudget("2006-3", "Food", "300");
    Click("Budget");

    EXPECT_EQ(Lines(), "Food 300 0 -300");
    EXPECT_EQ(Texts("footer"), "Total (budgeted/actual): $300.00 / $0.00");
}

TEST_F(BudgetFiguresTest, ADifferenceMayBeBeyondTheRangeOfAmounts)
{
    AddBudget("2006-3", "Food", "-900000000000000");
    AddTransaction("B-1", "2006-3", "900000000000000", "Food");
    Click("Budget");

    EXPECT_EQ(Lines(), "Food -900000000000000 900000000000000 1.8e+15");
    Menu("mnuF_Print");
    EXPECT_NE(EventsOf("print").at(0)["html"].get<std::string>().find("1,800,000,000,000,000.00"),
              std::string::npos);
}

TEST_F(BudgetFiguresTest, ActualsAreSummedOverTheAccountsOfTheBudget)
{
    AddBudget("2006-3", "Food", "300");
    AddTransaction("B-1", "2006-3", "-45.5", "Food");
    AddTransaction("V-1", "2006-3", "-20.25", "Food");
    AddTransaction("C-1", "2006-3", "-7", "Food");
    AddTransaction("gone", "2006-3", "-1000", "Food");
    Click("Budget");

    EXPECT_EQ(Lines(), "Food 300 -65.75 -365.75");
    EXPECT_EQ(Texts("footer"), "Total (budgeted/actual): $300.00 / -$65.75");
}

TEST_F(BudgetFiguresTest, MoneySpentBeyondAnExpenseBudgetShowsAsTheExcess)
{
    AddBudget("2006-3", "Salary", "2000");
    AddBudget("2006-3", "Food", "-300");
    AddTransaction("B-1", "2006-3", "2100.01", "Salary");
    AddTransaction("B-1", "2006-3", "-300.0001", "Food");
    Click("Budget");

    EXPECT_EQ(Lines(), "Food -300 -300.0001 -0.0001; Salary 2000 2100.01 100.01");
}

TEST_F(BudgetFiguresTest, TheBookedMonthCountsNotTheDate)
{
    AddBudget("2006-3", "Food", "10");
    AddTransaction("B-1", "2006-3", "-1", "Food");
    AddTransaction("B-1", "2006-4", "-2", "Food");
    AddTransaction("B-1", "2005-3", "-4", "Food");
    Sql("UPDATE Trans SET PostDate = #2006-03-20#");
    Click("Budget");

    EXPECT_EQ(Lines(), "Food 10 -1 -11");
}

TEST_F(BudgetFiguresTest, NamesWithApostrophesAreFoundUnchanged)
{
    AddBudget("2006-3", "Kids' toys", "10", "O'Neil's");
    AddTransaction("B-1", "2006-3", "-1", "Kids' toys");
    Click("Budget");

    EXPECT_EQ(Lines(), "Kids' toys 10 -1 -11");
    EXPECT_EQ(Texts("group"), "O'Neil's (1 items)");
    EXPECT_EQ(Texts("footer"), "Total (budgeted/actual): $10.00 / -$1.00");
    EXPECT_EQ(Tip(2, 1),
              "Number of transactions: 1\r\n\r\nDate: 2006-03-15\r\nDescription: Shop\r\n"
              "Amount: -$1.00");
}

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

TEST_F(BudgetFiguresTest, ATransactionOutsideTheBudgetCountsInNoLineAndNoFooter)
{
    AddBudget("2006-3", "Food", "300");
    AddTransaction("B-1", "2006-3", "-5", "Travel");
    Click("Budget");

    EXPECT_EQ(Lines(), "Food 300 0 -300");
    EXPECT_EQ(Texts("footer"), "Total (budgeted/actual): $300.00 / $0.00");
    EXPECT_EQ(Window()["totals"]["second"], "-5.00");
}

TEST_F(BudgetFiguresTest, TheSameCategoryInAnotherMonthIsNotMixedIn)
{
    AddBudget("2006-3", "Food", "300", "Daily");
    AddBudget("2006-4", "Food", "999", "Daily");
    AddTransaction("B-1", "2006-4", "-5", "Food");
    Click("Budget");

    EXPECT_EQ(Texts("footer"), "Total (budgeted/actual): $300.00 / $0.00");
    Press("Forward");
    EXPECT_EQ(Texts("footer"), "Total (budgeted/actual): $999.00 / -$5.00");
}

TEST_F(BudgetFiguresTest, FooterAmountsAreRoundedAwayFromZeroWithoutGrouping)
{
    AddBudget("2006-3", "Food", "1234567.005");
    AddTransaction("B-1", "2006-3", "-1234.565", "Food");
    Click("Budget");

    EXPECT_EQ(Texts("footer"), "Total (budgeted/actual): $1234567.01 / -$1234.57");
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
