// The rules for a row of the grid that is about to be saved or deleted.
#pragma once
#include <cstdint>
#include <string>

#include "data/IShownState.h"
#include "data/ViewColumns.h"

namespace clb {

class clsDatabase;

/// Checks the grid's current row and fills in what the user does not type. The store, the shown
/// state and the row are borrowed. The operations throw EngineError.
class RowRules {
public:
    RowRules(clsDatabase& store, const IShownState& shown, ICurrentRow& row);

    // Each is for the rows of one view and returns whether the row may be saved. If not, Column
    // and Message say why.

    /// An account needs a description, a number that no other account has, and a type.
    bool CheckAccount();
    /// The same in a view of one type of account; the type is filled in.
    bool CheckAccountOfType();
    /// A budget line needs a category. Its group and its month are filled in.
    bool CheckBudgetLine();
    /// Fills in number, account, month and category, and makes the category's budget line.
    bool CompleteTransaction();
    /// These two fill in the account number.
    bool CompleteHolding();
    bool CompleteLoan();

    /// The column to correct, from 1, and what to show the user. Set when a check refuses the row.
    [[nodiscard]] std::int32_t Column() const { return column_; }
    [[nodiscard]] const std::string& Message() const { return message_; }

    /// Takes the month's transactions out of a category whose budget line is being deleted.
    void ReleaseCategory();

private:
    bool Refuse(std::int32_t column, const char* message);
    bool CheckAccountCells(const AccountColumns& columns);
    bool AccountTaken(const AccountColumns& columns);
    bool IsBlank(std::int32_t column);

    clsDatabase& store_;
    const IShownState& shown_;
    ICurrentRow& row_;
    std::int32_t column_ = 0;
    std::string message_;
};

}  // namespace clb
