#include "engine/storage/EngineError.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

class TotalsTest : public StoreTest {
protected:
    std::string Totals()
    {
        Money first = Money::Parse("-1");
        Money second = Money::Parse("-2");
        Store().CalcTotals(first, second);
        return first.ToText() + " / " + second.ToText();
    }
    std::string BalanceOf(const std::string& account)
    {
        return Rows("SELECT CurrentBalance FROM Account WHERE AccountID = '" + account + "'").at(0);
    }
    void Update(std::int32_t view, std::string account) { Store().UpdateBalance(view, account); }
};

TEST_F(TotalsTest, NetWorthSumsEveryAccount)
{
    AddAccount("10", "Bank", "100.1", "20.02");
    AddAccount("20", "Loan", "0", "7");
    shown_.view = vwNetWorth;
    EXPECT_EQ(Totals(), "100.1 / 127.12");

    shown_.view = vwAccountType;
    shown_.type = "Bank";
    EXPECT_EQ(Totals(), "100.1 / 120.12");
    shown_.type = "Cash";
    EXPECT_EQ(Totals(), "0 / 0");
}

TEST_F(TotalsTest, AMissingSumMakesTheSecondTotalZero)
{
    AddAccount("10", "Bank", "100", "NULL");
    shown_.view = vwNetWorth;

    EXPECT_EQ(Totals(), "100 / 0");
}

TEST_F(TotalsTest, AnEmptyBudgetMonthIsZeroAgainstZero)
{
    shown_.view = vwBudget;

    EXPECT_EQ(Totals(), "0 / 0");
}

TEST_F(TotalsTest, BudgetActualsCountOnlyIncludedAccountsOfTheMonth)
{
    AddAccount("10", "Bank");
    AddAccount("20", "Bank");
    Execute("UPDATE Account SET BudgetInclude = NO WHERE AccountID = '20'");
    AddBudget("Food", "Living", "200", 2006, 3);
    AddBudget("Rent", "Home", "700.5", 2006, 3);
    AddBudget("Rent", "Home", "1", 2006, 4);
    AddTransaction(1, "10", "-45.25", 2006, 3, "Food");
    AddTransaction(2, "10", "10", 2006, 3, "Other");
    AddTransaction(3, "10", "-1", 2006, 2, "Food");
    AddTransaction(4, "20", "-99", 2006, 3, "Food");
    AddTransaction(5, "gone", "-7", 2006, 3, "Food");
    shown_.view = vwBudget;

    EXPECT_EQ(Totals(), "900.5 / -35.25");
}

TEST_F(TotalsTest, TheRegisterBalanceUsesTheBookedMonth)
{
    AddAccount("10", "Bank", "1000");
    AddTransaction(1, "10", "5", 2005, 12);
    AddTransaction(2, "10", "-20", 2006, 2, "(none)", "2006-03-15");
    AddTransaction(3, "10", "300", 2006, 3, "(none)", "2006-02-15");
    shown_.view = vwAccount;
    shown_.account = "10";

    shown_.period = 2;
    EXPECT_EQ(Totals(), "985 / -2");
    shown_.period = 3;
    EXPECT_EQ(Totals(), "1285 / -2");
}

TEST_F(TotalsTest, BeforeTheFirstTransactionTheRegisterBalanceIsZero)
{
    AddAccount("10", "Bank", "1000");
    AddTransaction(1, "10", "5", 2006, 4);
    shown_.view = vwAccount;
    shown_.account = "10";

    EXPECT_EQ(Totals(), "0 / -2");
}

TEST_F(TotalsTest, AMissingOpeningBalanceIsAnError)
{
    AddAccount("10", "Bank", "NULL");
    AddTransaction(1, "10", "5", 2006, 3);
    shown_.view = vwAccount;
    shown_.account = "10";

    EXPECT_THROW(Totals(), RuntimeError);
}

TEST_F(TotalsTest, AMissingOpeningBalanceIsAnErrorBeforeTheFirstTransactionToo)
{
    // Symptom: the balance was 0.00 until the account had its first transaction.
    AddAccount("10", "Bank", "NULL");
    shown_.view = vwAccount;
    shown_.account = "10";

    EXPECT_THROW(Totals(), RuntimeError);
}

TEST_F(TotalsTest, HoldingsAreSummedPerAccountAndLoansOverAll)
{
    Execute("INSERT INTO Investment (AccountID, Total) VALUES ('50', 10.5)");
    Execute("INSERT INTO Investment (AccountID, Total) VALUES ('51', 3)");
    Execute("INSERT INTO Loan (AccountID, OriginalAmount, PaidAmount) VALUES ('60', 100, 25)");
    Execute("INSERT INTO Loan (AccountID, OriginalAmount, PaidAmount) VALUES ('61', 50, 5)");

    shown_.view = vwInvestment;
    shown_.account = "50";
    EXPECT_EQ(Totals(), "10.5 / -2");
    shown_.view = vwLoan;
    shown_.account = "60";
    EXPECT_EQ(Totals(), "120 / -2");
    shown_.account = "61";
    EXPECT_EQ(Totals(), "120 / -2");
}

TEST_F(TotalsTest, NoViewHasNoTotals)
{
    shown_.view = 9;

    EXPECT_EQ(Totals(), "-1 / -2");
}

TEST_F(TotalsTest, SumsAreExactAndNeverWrap)
{
    AddAccount("10", "Bank", "922337203685477.5807");
    AddAccount("20", "Bank", "0.0001");
    shown_.view = vwNetWorth;

    EXPECT_THROW(Totals(), RuntimeError);
}

TEST_F(TotalsTest, ABalanceIsTheAccountsWholeActivity)
{
    AddAccount("10", "Bank", "1000", "77");
    AddAccount("50", "Investment");
    AddAccount("60", "Loan");
    AddTransaction(1, "10", "5.25", 2005, 1);
    AddTransaction(2, "10", "-2", 2030, 1);
    Execute("INSERT INTO Investment (AccountID, Total) VALUES ('50', 10.5)");
    Execute("INSERT INTO Loan (AccountID, OriginalAmount, PaidAmount) VALUES ('60', 100, 25)");
    Execute("INSERT INTO Loan (AccountID, OriginalAmount, PaidAmount) VALUES ('61', 9, 0)");

    Update(vwAccount, "10");
    Update(vwInvestment, "50");
    Update(vwLoan, "60");

    EXPECT_EQ(BalanceOf("10"), "3.25");
    EXPECT_EQ(BalanceOf("50"), "10.5");
    EXPECT_EQ(BalanceOf("60"), "75");
}

TEST_F(TotalsTest, NoActivityStoresZero)
{
    AddAccount("10", "Bank", "1000", "77");

    Update(vwAccount, "10");

    EXPECT_EQ(BalanceOf("10"), "0");
}

TEST_F(TotalsTest, TheShownViewAndAccountAreReturned)
{
    AddAccount("10", "Bank");
    AddTransaction(1, "10", "5", 2006, 3);
    shown_.view = vwAccount;
    shown_.account = "10";
    std::int32_t view = -1;
    std::string account;

    Store().UpdateBalance(view, account);

    EXPECT_EQ(view, vwAccount);
    EXPECT_EQ(account, "10");
    EXPECT_EQ(BalanceOf("10"), "5");
}

TEST_F(TotalsTest, AMissingAccountIsAnErrorOfTheEngine)
{
    EXPECT_THROW(Update(vwAccount, "nobody"), EngineError);
    EXPECT_NO_THROW(Update(vwNetWorth, "nobody"));
}

// Symptom: of three deposits, the last of which cancels the first, no balance was stored.
TEST_F(TotalsTest, ABalanceIsExactEvenIfAPartialSumIsTooLarge)
{
    AddAccount("10", "Bank");
    AddTransaction(1, "10", "900000000000000", 2006, 3);
    AddTransaction(2, "10", "900000000000000", 2006, 3);
    AddTransaction(3, "10", "-900000000000000", 2006, 3);

    Update(vwAccount, "10");

    EXPECT_EQ(BalanceOf("10"), "900000000000000");
}

TEST_F(TotalsTest, ASumThatDoesNotFitNamesItsAccount)
{
    AddAccount("10", "Bank", "0", "7");
    AddTransaction(1, "10", "900000000000000", 2006, 3);
    AddTransaction(2, "10", "900000000000000", 2006, 3);
    shown_.view = vwAccount;
    shown_.account = "10";

    const std::string message =
        "The rows of the account '10' add up to more than an amount can be.";
    const auto textOf = [](auto failing) -> std::string {
        try {
            failing();
        } catch (const EngineError& error) {
            EXPECT_EQ(error.Number(), engine_errors::Overflow);
            return error.what();
        }
        return "no error";
    };
    EXPECT_EQ(textOf([&] { Update(vwAccount, "10"); }), message);
    EXPECT_EQ(textOf([&] { Totals(); }), message);
    EXPECT_EQ(BalanceOf("10"), "7");
}

}  // namespace
}  // namespace clb
