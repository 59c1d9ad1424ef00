// The figures of the budget view that no table holds: actuals, differences, footers and tips.

#include "tests/views/ShownView.h"

namespace clb {
namespace {

class BudgetLinesTest : public ShownView {
protected:
    BudgetLinesTest()
    {
        books_.AddAccount("V-1", "Credit Card", "Visa");
        books_.AddAccount("C-1", "Cash", "Wallet");
        books_.Execute("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = 'C-1'");
    }

    void AddBudget(std::int32_t period, const std::string& category, const std::string& amount,
                   const std::string& group = "(none)")
    {
        books_.Execute(
            "INSERT INTO Budget (Category, CategoryGroup, Amount, Year, Period) VALUES ('" +
            clsDatabase::ToSqlString(category) + "', '" + clsDatabase::ToSqlString(group) + "', " +
            amount + ", 2006, " + std::to_string(period) + ")");
    }
    /// Adds a transaction of 15 March 2006 that is booked to a month.
    void Spend(const std::string& account, std::int32_t year, std::int32_t period,
               const std::string& amount, const std::string& category)
    {
        books_.Execute(
            "INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, Category, "
            "Year, Period) VALUES (" +
            std::to_string(++last_) + ", '" + account + "', #2006-03-15#, 'Shop', " + amount +
            ", '" + clsDatabase::ToSqlString(category) + "', " + std::to_string(year) + ", " +
            std::to_string(period) + ")");
    }
    /// Category, budgeted amount, actual amount and difference of every line of March 2006.
    std::string Lines()
    {
        Show(vwBudget);
        std::string text;
        for (std::size_t row = 1; row <= Grid().Rows().Count(); ++row)
            if (Grid().Rows().Kind(row) == GridRowKind::Data)
                text += (text.empty() ? "" : "; ") + Line(row);
        return text;
    }
    std::string Footers()
    {
        Show(vwBudget);
        std::string text;
        for (std::size_t row = 1; row <= Grid().Rows().Count(); ++row)
            if (Grid().Rows().Kind(row) == GridRowKind::GroupFooter)
                text += (text.empty() ? "" : "; ") + Grid().FooterText(row);
        return text;
    }
    /// Tip of the first line.
    std::string Tip()
    {
        Show(vwBudget);
        return Grid().CellTip(2, Budget::Category).value_or("no tip");
    }

private:
    /// The cells of a line, read from the left as the window does: a difference needs the actual
    /// amount that was read before it.
    std::string Line(std::size_t row)
    {
        std::string line = ToText(Grid().CellValue(row, Budget::Category));
        for (const std::int32_t column : {Budget::Amount, Budget::Actual, Budget::Difference})
            line += " " + ToText(Grid().CellValue(row, column));
        return line;
    }

    std::int32_t last_ = 0;
};

TEST_F(BudgetLinesTest, ACategoryWithoutTransactionsDiffersByItsBudget)
{
    AddBudget(3, "Food", "300");

    EXPECT_EQ(Lines(), "Food 300 0 -300");
    EXPECT_EQ(Footers(), "Total (budgeted/actual): $300.00 / $0.00");
    EXPECT_EQ(Tip(), "Number of transactions: 0");
}

TEST_F(BudgetLinesTest, ADifferenceMayBeBeyondTheRangeOfAmounts)
{
    AddBudget(3, "Food", "-900000000000000");
    Spend("B-1", 2006, 3, "900000000000000", "Food");

    Show(vwBudget);

    EXPECT_EQ(Grid().CellText(2, Budget::Actual), "900,000,000,000,000.00");
    EXPECT_EQ(Grid().CellText(2, Budget::Difference), "1,800,000,000,000,000.00");
}

TEST_F(BudgetLinesTest, ActualsAreSummedOverTheAccountsOfTheBudget)
{
    AddBudget(3, "Food", "300");
    Spend("B-1", 2006, 3, "-45.5", "Food");
    Spend("V-1", 2006, 3, "-20.25", "Food");
    Spend("C-1", 2006, 3, "-7", "Food");
    Spend("gone", 2006, 3, "-1000", "Food");

    EXPECT_EQ(Lines(), "Food 300 -65.75 -365.75");
    EXPECT_EQ(Footers(), "Total (budgeted/actual): $300.00 / -$65.75");
    EXPECT_TRUE(Tip().starts_with("Number of transactions: 2\r\n")) << Tip();
}

TEST_F(BudgetLinesTest, MoneySpentBeyondAnExpenseBudgetShowsAsTheExcess)
{
    AddBudget(3, "Salary", "2000");
    AddBudget(3, "Food", "-300");
    Spend("B-1", 2006, 3, "2100.01", "Salary");
    Spend("B-1", 2006, 3, "-300.0001", "Food");

    EXPECT_EQ(Lines(), "Food -300 -300.0001 -1E-04; Salary 2000 2100.01 100.01");
}

TEST_F(BudgetLinesTest, TheBookedMonthCountsNotTheDate)
{
    AddBudget(3, "Food", "10");
    Spend("B-1", 2006, 3, "-1", "Food");
    Spend("B-1", 2006, 4, "-2", "Food");
    Spend("B-1", 2005, 3, "-4", "Food");
    Spend("B-1", 2006, 3, "-8", "Travel");
    books_.Execute("UPDATE Trans SET PostDate = #2006-03-20#");

    EXPECT_EQ(Lines(), "Food 10 -1 -11");
    EXPECT_EQ(Tip(),
              "Number of transactions: 1\r\n\r\nDate: 2006-03-20\r\nDescription: Shop\r\n"
              "Amount: -$1.00");
}

TEST_F(BudgetLinesTest, NamesWithApostrophesAreFoundUnchanged)
{
    AddBudget(3, "Kids' toys", "10", "O'Neil's");
    Spend("B-1", 2006, 3, "-1", "Kids' toys");

    EXPECT_EQ(Lines(), "Kids' toys 10 -1 -11");
    EXPECT_EQ(Grid().Rows().HeadingText(1), "O'Neil's (1 items)");
    EXPECT_EQ(Footers(), "Total (budgeted/actual): $10.00 / -$1.00");
    EXPECT_EQ(Tip(),
              "Number of transactions: 1\r\n\r\nDate: 2006-03-15\r\nDescription: Shop\r\n"
              "Amount: -$1.00");
}

TEST_F(BudgetLinesTest, ATransactionOutsideTheBudgetCountsInNoLineAndNoFooter)
{
    AddBudget(3, "Food", "300");
    Spend("B-1", 2006, 3, "-5", "Travel");

    EXPECT_EQ(Lines(), "Food 300 0 -300");
    EXPECT_EQ(Footers(), "Total (budgeted/actual): $300.00 / $0.00");
    EXPECT_EQ(books_.window.txtTotal2.Text(), "-5.00");
}

TEST_F(BudgetLinesTest, TheSameCategoryInAnotherMonthIsNotMixedIn)
{
    AddBudget(3, "Food", "300", "Daily");
    AddBudget(4, "Food", "999", "Daily");
    Spend("B-1", 2006, 4, "-5", "Food");

    EXPECT_EQ(Footers(), "Total (budgeted/actual): $300.00 / $0.00");
    books_.window.View().Period(4);
    EXPECT_EQ(Footers(), "Total (budgeted/actual): $999.00 / -$5.00");
}

TEST_F(BudgetLinesTest, FooterAmountsAreRoundedAwayFromZeroWithoutGrouping)
{
    AddBudget(3, "Food", "1234567.005");
    Spend("B-1", 2006, 3, "-1234.565", "Food");

    EXPECT_EQ(Footers(), "Total (budgeted/actual): $1234567.01 / -$1234.57");
}

TEST_F(BudgetLinesTest, TheTipListsEveryTransactionAfterAnEmptyLine)
{
    AddBudget(3, "Food", "300");
    Spend("B-1", 2006, 3, "-45.5", "Food");
    Spend("B-1", 2006, 3, "1234.565", "Food");
    books_.Execute(
        "UPDATE Trans SET Description = 'Baker''s', PostDate = #2006-02-28# WHERE Sequence = 2");

    EXPECT_EQ(Tip(),
              "Number of transactions: 2"
              "\r\n\r\nDate: 2006-03-15\r\nDescription: Shop\r\nAmount: -$45.50"
              "\r\n\r\nDate: 2006-02-28\r\nDescription: Baker's\r\nAmount: $1234.57");
}

TEST_F(BudgetLinesTest, InTheTipAMissingDateAndDescriptionLeaveTheirPlaceEmpty)
{
    AddBudget(3, "Food", "300");
    books_.Execute(
        "INSERT INTO Trans (Sequence, AccountID, Year, Period, Amount, Category) VALUES (1, "
        "'B-1', 2006, 3, 0, 'Food')");

    EXPECT_EQ(Tip(), "Number of transactions: 1\r\n\r\nDate: \r\nDescription: \r\nAmount: $0.00");
}

TEST_F(BudgetLinesTest, TheTipListsAnyNumberOfTransactions)
{
    AddBudget(3, "Food", "300");
    std::string expected = "Number of transactions: 60";
    for (int count = 0; count < 60; ++count) {
        Spend("B-1", 2006, 3, "-1", "Food");
        expected += "\r\n\r\nDate: 2006-03-15\r\nDescription: Shop\r\nAmount: -$1.00";
    }

    EXPECT_EQ(Tip(), expected);
}

TEST_F(BudgetLinesTest, EveryCellOfTheLineHasTheSameTipAndOtherRowsHaveNone)
{
    AddBudget(3, "Food", "300");
    Show(vwBudget);

    for (const std::int32_t column : {1, 2, 6, 7, 8})
        EXPECT_EQ(Grid().CellTip(2, column), "Number of transactions: 0") << column;
    for (const std::size_t row : {std::size_t{1}, std::size_t{3}, Grid().Rows().NewRow()})
        EXPECT_EQ(Grid().CellTip(row, 1), std::nullopt) << row;
}

}  // namespace
}  // namespace clb
