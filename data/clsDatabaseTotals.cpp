// Balances and totals. Every sum is made by the database and is exact.

#include "base/RuntimeError.h"
#include "data/WrongAmount.h"
#include "data/clsDatabase.h"
#include "engine/EngineError.h"

namespace clb {

Value clsDatabase::Total(const std::string& sql, const SummedAmounts& amounts)
{
    try {
        Recordset records;
        Fill(records, sql, true);
        return records.Get("TotAmount");
    } catch (const EngineError& error) {
        ThrowWithPlace(connection_, amounts, error);
    }
}

Money clsDatabase::Sum(const std::string& sql, const SummedAmounts& amounts)
{
    return ToMoney(Total(sql, amounts));
}

void clsDatabase::AccountTotals(const std::string& condition, Money& first, Money& second)
{
    Recordset records;
    Fill(records,
         "SELECT SUM( OpeningBalance ) AS TotOpn, SUM( CurrentBalance ) AS TotCur FROM Account" +
             condition,
         true);
    const Value& opening = records.Get("TotOpn");
    const Value& current = records.Get("TotCur");
    first = ToMoney(opening);
    second = IsNull(opening) || IsNull(current) ? Money() : ToMoney(opening) + ToMoney(current);
}

Money clsDatabase::RegisterBalance()
{
    const std::string year = std::to_string(shown_.Year());
    Recordset account;
    Fill(account, "SELECT OpeningBalance FROM Account WHERE AccountID = '" + ShownAccount() + "'",
         true);
    // Missing, it is an error even where it would not count.
    if (!account.Empty() && IsNull(account.Get("OpeningBalance")))
        throw RuntimeError(errors::InvalidNull, "Invalid use of Null");
    const std::string past = "AccountID = '" + ShownAccount() + "' AND ( Year < " + year +
                             " OR ( Year = " + year +
                             " AND Period <= " + std::to_string(shown_.Period()) + ") )";
    const Value amount = Total("SELECT SUM( Amount ) AS TotAmount FROM Trans WHERE " + past,
                               {"Trans", {"Amount"}, past, shown_.AccountID()});
    // Before the first transaction the balance is 0, not the opening balance; settled.
    if (IsNull(amount))
        return {};
    return ToMoney(amount) + ToMoney(account.Get("OpeningBalance"));
}

void clsDatabase::CalcTotals(Money& first, Money& second)
{
    const std::string month = " Year = " + std::to_string(shown_.Year()) +
                              " AND Period = " + std::to_string(shown_.Period());
    switch (shown_.View()) {
        case vwNetWorth: AccountTotals("", first, second); break;
        case vwAccountType:
            AccountTotals(" WHERE Type = '" + shown_.AccountType() + "'", first, second);
            break;
        case vwBudget:
            first = Sum("SELECT SUM( Amount ) AS TotAmount FROM Budget WHERE" + month,
                        {"Budget", {"Amount"}, month});
            second =
                Sum("SELECT SUM( Amount ) AS TotAmount FROM Account INNER JOIN Trans ON "
                    "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND" +
                        month,
                    {"Trans", {"Amount"}, month});
            break;
        case vwAccount: first = RegisterBalance(); break;
        case vwInvestment:
            first = Sum("SELECT sum( Total ) AS TotAmount FROM Investment WHERE AccountID = '" +
                            ShownAccount() + "'",
                        {"Investment",
                         {"Total"},
                         "AccountID = '" + ShownAccount() + "'",
                         shown_.AccountID()});
            break;
        case vwLoan:
            // On purpose over the loans of every loan account, not only the shown one.
            first = Sum("SELECT SUM( OriginalAmount - PaidAmount ) AS TotAmount FROM Loan",
                        {"Loan", {"OriginalAmount", "PaidAmount"}, {}});
            break;
        default: break;
    }
}

void clsDatabase::UpdateBalance(std::int32_t& view, std::string& accountID)
{
    if (view == -1)
        view = shown_.View();
    if (accountID.empty())
        accountID = shown_.AccountID();

    std::string sql;
    SummedAmounts amounts;
    switch (view) {
        case vwAccount:
            sql = "SELECT SUM( Amount ) AS TotAmount FROM Trans";
            amounts = {"Trans", {"Amount"}, {}};
            break;
        case vwInvestment:
            sql = "SELECT sum( Total ) AS TotAmount FROM Investment";
            amounts = {"Investment", {"Total"}, {}};
            break;
        case vwLoan:
            sql = "SELECT sum( OriginalAmount - PaidAmount ) AS TotAmount FROM Loan";
            amounts = {"Loan", {"OriginalAmount", "PaidAmount"}, {}};
            break;
        default: return;
    }
    Lock();
    const std::string account = ToSqlString(accountID);
    amounts.condition = "AccountID = '" + account + "'";
    amounts.account = accountID;
    const Money activity = Sum(sql + " WHERE " + amounts.condition, amounts);

    Recordset balance;
    balance.Open("SELECT CurrentBalance FROM Account WHERE AccountID = '" + account + "'",
                 connection_, CursorKind::Keyset, LockKind::Pessimistic);
    balance.Set("CurrentBalance", activity);
    balance.Update();
}

}  // namespace clb
