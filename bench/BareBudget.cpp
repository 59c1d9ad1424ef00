#include "bench/BareBudget.h"

namespace clb {

// The sums are made first, in the order of the index; a join line by line is slower.
BareBudget::BareBudget(BareDatabase& database)
    : lines_(database.Prepare(
          "SELECT CategoryGroup, Budget.Category, Amount, Spent FROM Budget LEFT JOIN (SELECT "
          "Category, SUM(Amount) AS Spent FROM Trans JOIN Account ON Account.AccountID = "
          "Trans.AccountID WHERE BudgetInclude AND Year = ?1 AND Period = ?2 GROUP BY Category) AS "
          "Spending ON Spending.Category = Budget.Category WHERE Year = ?1 AND Period = ?2 ORDER "
          "BY CategoryGroup, Budget.Category"))
{
}

std::vector<BareBudget::Line> BareBudget::Read(Month month)
{
    lines_.Bind(1, std::int64_t{month.year});
    lines_.Bind(2, std::int64_t{month.period});
    std::vector<Line> lines;
    while (lines_.Step())
        lines.push_back({std::string(lines_.Text(0)), std::string(lines_.Text(1)),
                         lines_.Integer(2), lines_.Integer(3)});
    return lines;
}

}  // namespace clb
