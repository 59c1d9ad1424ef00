#include "data/ViewTotals.h"

#include "base/RuntimeError.h"
#include "data/MonthBudget.h"
#include "data/WrongAmount.h"
#include "data/clsDatabase.h"

namespace clb {

ViewTotals::ViewTotals(clsDatabase& store, const IShownState& shown) : store_(store), shown_(shown)
{
}

Money ViewTotals::Sum(const std::string& sql, const SummedAmounts& amounts)
{
    return store_.Sum(sql, "TotAmount", amounts);
}

void ViewTotals::SumAccounts(const std::string& condition, Money& first, Money& second)
{
    Recordset records;
    store_.Fill(
        records,
        "SELECT SUM( OpeningBalance ) AS TotOpn, SUM( CurrentBalance ) AS TotCur FROM Account" +
            condition,
        true);
    const Value& opening = records.Get("TotOpn");
    const Value& current = records.Get("TotCur");
    first = ToMoney(opening);
    second = IsNull(opening) || IsNull(current) ? Money() : ToMoney(opening) + ToMoney(current);
}

void ViewTotals::OfAllAccounts(Money& first, Money& second)
{
    SumAccounts("", first, second);
}

void ViewTotals::OfAccountType(Money& first, Money& second)
{
    SumAccounts(" WHERE Type = '" + shown_.AccountType() + "'", first, second);
}

void ViewTotals::OfBudget(Money& first, Money& second)
{
    if (const MonthBudget* all = store_.BudgetOf({shown_.Year(), shown_.Period()})) {
        first = all->OfMonth().budgeted;
        second = all->OfMonth().spent;
        return;
    }
    const std::string month = " Year = " + std::to_string(shown_.Year()) +
                              " AND Period = " + std::to_string(shown_.Period());
    first = Sum("SELECT SUM( Amount ) AS TotAmount FROM Budget WHERE" + month,
                {"Budget", {"Amount"}, month});
    second =
        Sum("SELECT SUM( Amount ) AS TotAmount FROM Account INNER JOIN Trans ON "
            "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND" +
                month,
            {"Trans", {"Amount"}, month});
}

void ViewTotals::OfRegister(Money& first, Money& /*second*/)
{
    const std::string year = std::to_string(shown_.Year());
    const std::string number = clsDatabase::ToSqlString(shown_.AccountID());
    Recordset account;
    store_.Fill(account, "SELECT OpeningBalance FROM Account WHERE AccountID = '" + number + "'",
                true);
    // A missing opening balance is an error even if it does not count below.
    if (!account.Empty() && IsNull(account.Get("OpeningBalance")))
        throw RuntimeError(errors::InvalidNull, "Invalid use of Null");
    const std::string past = "AccountID = '" + number + "' AND ( Year < " + year +
                             " OR ( Year = " + year +
                             " AND Period <= " + std::to_string(shown_.Period()) + ") )";
    const Value amount = store_.Total("SELECT SUM( Amount ) AS TotAmount FROM Trans WHERE " + past,
                                      "TotAmount", {"Trans", {"Amount"}, past, shown_.AccountID()});
    // This is on purpose: before the first transaction the balance is 0, not the opening balance.
    first = IsNull(amount) ? Money() : ToMoney(amount) + ToMoney(account.Get("OpeningBalance"));
}

void ViewTotals::OfHoldings(Money& first, Money& /*second*/)
{
    const std::string ofAccount =
        "AccountID = '" + clsDatabase::ToSqlString(shown_.AccountID()) + "'";
    first = Sum("SELECT sum( Total ) AS TotAmount FROM Investment WHERE " + ofAccount,
                {"Investment", {"Total"}, ofAccount, shown_.AccountID()});
}

void ViewTotals::OfAllLoans(Money& first, Money& /*second*/)
{
    first = Sum("SELECT SUM( OriginalAmount - PaidAmount ) AS TotAmount FROM Loan",
                {"Loan", {"OriginalAmount", "PaidAmount"}, {}});
}

}  // namespace clb
