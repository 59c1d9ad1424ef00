#include "data/StoredView.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "data/RowRules.h"
#include "data/ViewColumns.h"
#include "data/ViewTotals.h"
#include "data/clsDatabase.h"

namespace clb {
namespace {

constexpr const char* kOfTransaction[] = {"Amount"};
constexpr const char* kOfHolding[] = {"Total"};
constexpr const char* kOfLoan[] = {"OriginalAmount", "PaidAmount"};

constexpr Activity kTransactions{"Trans", "SUM( Amount )", kOfTransaction};
constexpr Activity kHoldings{"Investment", "sum( Total )", kOfHolding};
constexpr Activity kLoans{"Loan", "sum( OriginalAmount - PaidAmount )", kOfLoan};

constexpr StoredView kViews[] = {
    {vwNetWorth, "Account", NetWorth::kRows, &RowRules::CheckAccount, nullptr,
     &ViewTotals::OfAllAccounts, nullptr},
    {vwBudget, "Budget", Budget::kRows, &RowRules::CheckBudgetLine, &RowRules::ReleaseCategory,
     &ViewTotals::OfBudget, nullptr},
    {vwAccountType, "Account", AccountType::kRows, &RowRules::CheckAccountOfType, nullptr,
     &ViewTotals::OfAccountType, nullptr},
    {vwAccount, "Trans", Register::kRows, &RowRules::CompleteTransaction, nullptr,
     &ViewTotals::OfRegister, &kTransactions},
    {vwInvestment, "Investment", Holdings::kRows, &RowRules::CompleteHolding, nullptr,
     &ViewTotals::OfHoldings, &kHoldings},
    {vwLoan, "Loan", Loans::kRows, &RowRules::CompleteLoan, nullptr, &ViewTotals::OfAllLoans,
     &kLoans},
};

std::string ShownValue(std::string_view name, const IShownState& shown)
{
    if (name == "account")
        return clsDatabase::ToSqlString(shown.AccountID());
    if (name == "type")
        return shown.AccountType();
    return std::to_string(name == "year" ? shown.Year() : shown.Period());
}

}  // namespace

const StoredView* StoredViewOf(std::int32_t view)
{
    const auto* found =
        std::find_if(std::begin(kViews), std::end(kViews),
                     [view](const StoredView& stored) { return stored.view == view; });
    return found == std::end(kViews) ? nullptr : found;
}

const Activity* ActivityOf(std::int32_t view)
{
    const StoredView* stored = StoredViewOf(view);
    return stored ? stored->activity : nullptr;
}

SummedAmounts AmountsOf(const Activity& activity, const std::string& condition,
                        const std::string& account)
{
    return {activity.table, {activity.columns.begin(), activity.columns.end()}, condition, account};
}

std::string RowsQuery(const IShownState& shown)
{
    const StoredView* stored = StoredViewOf(shown.View());
    if (!stored)
        return "SELECT  FROM  ORDER BY ";
    std::string query;
    std::string_view left = stored->rows;
    for (std::size_t open = left.find('{'); open != std::string_view::npos; open = left.find('{')) {
        const std::size_t close = left.find('}', open);
        query += left.substr(0, open);
        query += ShownValue(left.substr(open + 1, close - open - 1), shown);
        left.remove_prefix(close + 1);
    }
    return query += left;
}

}  // namespace clb
