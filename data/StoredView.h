// What the data store does differently from view to view. Each view is one line of a table.
#pragma once
#include <cstdint>
#include <span>
#include <string>

#include "base/Money.h"
#include "data/IShownState.h"
#include "data/WrongAmount.h"

namespace clb {

class RowRules;
class ViewTotals;

/// The rows that an account's balance is the sum of.
struct Activity {
    const char* table;
    const char* sum;                       ///< SQL aggregate over one account's rows
    std::span<const char* const> columns;  ///< the amounts that it adds up
};

/// A view as the data store sees it. A null member means that there is nothing to do.
struct StoredView {
    std::int32_t view;
    const char* table;  ///< the table that its rows are stored in
    const char* rows;   ///< SELECT for the rows, with what is shown in braces; see ViewColumns.h
    bool (RowRules::*complete)();
    void (RowRules::*followDeletion)();
    void (ViewTotals::*totals)(Money& first, Money& second);
    const Activity* activity;  ///< of the account shown; null in views that show no single account
};

/// nullptr for a number that is not a view.
const StoredView* StoredViewOf(std::int32_t view);

/// nullptr for views that show no single account.
const Activity* ActivityOf(std::int32_t view);

/// The amounts of the rows that meet the condition. They serve to name the amount that prevents a
/// sum.
SummedAmounts AmountsOf(const Activity& activity, const std::string& condition,
                        const std::string& account = {});

/// The SELECT for the rows of what is shown. If no view is shown, it is one that the engine
/// refuses.
std::string RowsQuery(const IShownState& shown);

}  // namespace clb
