#include "data/BudgetFigures.h"

#include "data/MonthBudget.h"
#include "data/WrongAmount.h"
#include "data/clsDatabase.h"

namespace clb {
namespace {

std::string Quoted(const std::string& text)
{
    return "'" + clsDatabase::ToSqlString(text) + "'";
}

}  // namespace

BudgetFigures::BudgetFigures(clsDatabase& store, const IShownState& shown)
    : store_(store), shown_(shown)
{
}

/// table is a prefix with its dot, or empty.
std::string BudgetFigures::InMonth(const std::string& table) const
{
    return table + "Year = " + std::to_string(shown_.Year()) + " AND " + table +
           "Period = " + std::to_string(shown_.Period());
}

const MonthBudget* BudgetFigures::AllSums()
{
    return store_.BudgetOf({shown_.Year(), shown_.Period()});
}

Money BudgetFigures::ActualOf(const std::string& category)
{
    if (const MonthBudget* all = AllSums())
        return all->SpentOn(category);
    return store_.Sum(
        "SELECT SUM( Amount ) AS TotActual FROM Account INNER JOIN Trans ON "
        "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND " +
            InMonth("") + " AND Category = " + Quoted(category),
        "TotActual", {"Trans", {"Amount"}, InMonth("")});
}

Recordset BudgetFigures::TransactionsOf(const std::string& category)
{
    Recordset records;
    store_.Fill(records,
                "SELECT PostDate, Trans.Description, Amount FROM Account INNER JOIN Trans ON "
                "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND " +
                    InMonth("") + " AND Trans.Category = " + Quoted(category),
                true);
    return records;
}

BudgetFigures::GroupSums BudgetFigures::SumsOf(const std::string& group)
{
    if (const MonthBudget* all = AllSums()) {
        const MonthBudget::Sums sums = all->OfGroup(group);
        return {sums.budgeted, sums.spent};
    }
    const std::string inGroup = " AND CategoryGroup = " + Quoted(group);
    GroupSums sums;
    sums.budgeted =
        store_.Sum("SELECT SUM( Amount ) AS TotAmount FROM Budget WHERE " + InMonth("") + inGroup,
                   "TotAmount", {"Budget", {"Amount"}, InMonth("")});
    sums.actual = store_.Sum(
        "SELECT SUM( Trans.Amount ) AS TotAmount FROM Account INNER JOIN (Budget INNER JOIN Trans "
        "ON Budget.Category = Trans.Category AND Budget.Year = Trans.Year AND Budget.Period = "
        "Trans.Period) ON Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE "
        "AND " +
            InMonth("Trans.") + inGroup,
        "TotAmount", {"Trans", {"Amount"}, InMonth("")});
    return sums;
}

}  // namespace clb
