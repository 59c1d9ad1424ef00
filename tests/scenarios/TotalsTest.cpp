// The totals line of every view, and the stored balances.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class TotalsTest : public Scenario {
protected:
    /// Label and amounts as the totals line shows them.
    std::string Line()
    {
        const Json totals = Window()["totals"];
        return totals["label"].get<std::string>() + " " + totals["first"].get<std::string>() +
               " | " + totals["second"].get<std::string>();
    }
};

TEST_F(TotalsTest, TheNetWorthIsOpeningAndPresentBalanceOfAllAccounts)
{
    AddAccount("B-1", "Bank", "Checking", "1000.25");
    AddAccount("L-1", "Loan", "House", "-200");
    Sql("UPDATE Account SET CurrentBalance = 50.5 WHERE AccountID = 'B-1'");

    ShowAll();

    EXPECT_EQ(Line(), "Total Net Worth: 800.25 | 850.75");
}

TEST_F(TotalsTest, TheAccountsOfOneTypeAreSummedAlone)
{
    AddAccount("B-1", "Bank", "Checking", "1234.5");
    AddAccount("C-1", "Cash", "Wallet", "20");
    ShowAll();

    Click("Bank");

    EXPECT_EQ(Line(), "Totals: 1,234.50 | 1,234.50");
}

TEST_F(TotalsTest, TheBudgetCountsOnlyAccountsThatBelongToIt)
{
    AddAccount("B-1", "Bank", "Checking");
    AddAccount("C-1", "Cash", "Wallet");
    Sql("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = 'C-1'");
    AddBudget("2006-3", "Food", "300");
    AddBudget("2006-4", "Food", "999");
    AddTransaction("B-1", "2006-3", "-45.5", "Food");
    AddTransaction("C-1", "2006-3", "-7", "Food");
    AddTransaction("B-1", "2006-4", "-1", "Food");

    Click("Budget");

    EXPECT_EQ(Line(), "Month to date: 300.00 | -45.50");
}

TEST_F(TotalsTest, ARegisterShowsTheBalanceAtTheEndOfTheMonth)
{
    AddAccount("B-1", "Bank", "Checking", "100");
    AddTransaction("B-1", "2005-12", "-10");
    AddTransaction("B-1", "2006-3", "-1");
    AddTransaction("B-1", "2006-4", "-1000");
    ShowAll();

    Click("Checking");

    EXPECT_EQ(Line(), "Balance: 89.00 | 0.00");
}

TEST_F(TotalsTest, TheLoanViewSumsTheLoansOfAllLoanAccounts)
{
    AddAccount("L-1", "Loan", "House");
    AddAccount("L-2", "Loan", "Car");
    Sql("INSERT INTO Loan (Description, OriginalAmount, PaidAmount, AccountID) "
        "VALUES ('First', 1000, 100, 'L-1')");
    Sql("INSERT INTO Loan (Description, OriginalAmount, PaidAmount, AccountID) "
        "VALUES ('Second', 500, 50, 'L-2')");
    ShowAll();

    Click("House");
    EXPECT_EQ(Line(), "Total Loans: 1,350.00 | 0.00");
    Click("Car");
    EXPECT_EQ(Line(), "Total Loans: 1,350.00 | 0.00");
}

TEST_F(TotalsTest, TheHoldingsOfOneAccountAreSummed)
{
    AddAccount("I-1", "Investment", "Broker");
    Sql("INSERT INTO Investment (StockSymbol, Total, AccountID) VALUES ('ACME', 12.5, 'I-1')");
    Sql("INSERT INTO Investment (StockSymbol, Total, AccountID) VALUES ('OTHER', 99, 'I-2')");
    ShowAll();

    Click("Broker");

    EXPECT_EQ(Line(), "Total Investment: 12.50 | 0.00");
}

TEST_F(TotalsTest, ATotalThatTheViewDoesNotUseStaysAsPassed)
{
    AddAccount("B-1", "Bank", "Checking");
    AddTransaction("B-1", "2006-3", "-1");
    ShowAll();
    Click("Checking");

    EXPECT_EQ(ToLine(CallReply("CalcTotals", {"7", "8"})["args"]), R"json(["-1","8"])json");

    SetView("HoldRefresh", true);
    SetView("View", 0);
    EXPECT_EQ(ToLine(CallReply("CalcTotals", {"7", "8"})["args"]), R"json(["7","8"])json");
}

TEST_F(TotalsTest, UpdateBalanceOnTheShownAccountReturnsViewAndNumber)
{
    AddAccount("B-1", "Bank", "Checking", "100");
    AddTransaction("B-1", "2006-3", "-1.25");
    AddTransaction("B-1", "2009-1", "-2");
    ShowAll();
    Click("Checking");

    EXPECT_EQ(ToLine(CallReply("UpdateBalance", {-1, ""})["args"]), R"json([4,"B-1"])json");

    EXPECT_EQ(Rows("SELECT CurrentBalance FROM Account"), R"json(["-3.25"])json");
}

}  // namespace
}  // namespace clb
