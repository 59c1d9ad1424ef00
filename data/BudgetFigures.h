// The figures of the budget view that no table holds.
#pragma once
#include <string>

#include "base/Money.h"
#include "data/IShownState.h"
#include "engine/rows/Recordset.h"

namespace clb {

class MonthBudget;
class clsDatabase;

/// What was spent in the shown month on the categories of the budget. Only transactions of accounts
/// that take part in the budget count. The store and the shown state are borrowed. All operations
/// throw EngineError; if a cell that is not an amount prevents a sum, its text names that cell.
class BudgetFigures {
public:
    BudgetFigures(clsDatabase& store, const IShownState& shown);

    /// The sum of a category's transactions; 0 without any.
    Money ActualOf(const std::string& category);
    /// A category's transactions: PostDate, Description, Amount.
    Recordset TransactionsOf(const std::string& category);

    struct GroupSums {
        Money budgeted;
        Money actual;
    };
    /// The sums over all categories of a group.
    GroupSums SumsOf(const std::string& group);

private:
    /// Null if each sum must be read by its own query.
    const MonthBudget* AllSums();
    [[nodiscard]] std::string InMonth(const std::string& table) const;

    clsDatabase& store_;
    const IShownState& shown_;
};

}  // namespace clb
