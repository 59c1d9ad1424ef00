// The one or two sums that the totals line shows for a view.
#pragma once
#include <string>

#include "base/Money.h"
#include "data/IShownState.h"

namespace clb {

class clsDatabase;
struct SummedAmounts;

/// Sums the rows of what is shown. The database makes every sum, so it is exact. The store and the
/// shown state are borrowed.
///
/// Each operation is for one view. An operation that has a single sum leaves the second argument as
/// passed. Throws EngineError, also for a sum that an amount cannot hold and for a cell that is not
/// an amount; the text then names the cell.
class ViewTotals {
public:
    ViewTotals(clsDatabase& store, const IShownState& shown);

    /// Opening balances, and what the accounts hold now.
    void OfAllAccounts(Money& first, Money& second);
    void OfAccountType(Money& first, Money& second);
    /// What is budgeted for the month, and what was spent of it.
    void OfBudget(Money& first, Money& second);
    /// The account's balance at the end of the month.
    void OfRegister(Money& first, Money& second);
    void OfHoldings(Money& first, Money& second);
    /// What is still owed on the loans of every account, not only of the shown account.
    void OfAllLoans(Money& first, Money& second);

private:
    Money Sum(const std::string& sql, const SummedAmounts& amounts);
    void SumAccounts(const std::string& condition, Money& first, Money& second);

    clsDatabase& store_;
    const IShownState& shown_;
};

}  // namespace clb
