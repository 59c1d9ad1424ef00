// The view of an account's loans.

#include "data/AccountKind.h"
#include "data/ViewColumns.h"
#include "views/MenuNames.h"
#include "views/ViewDefinition.h"

namespace clb {
namespace {

void Calculate(const DrawnRow& row, std::int32_t column, Value& value)
{
    if (column == Loans::Balance)
        value = ToMoney(row.grid.CellValue(row.row, Loans::OriginalAmount)) -
                ToMoney(row.grid.CellValue(row.row, Loans::PaidAmount));
}

constexpr ViewColumn kColumns[] = {
    {.column = Loans::Description, .caption = "Description", .part = 0.4},
    {.column = Loans::OriginalAmount, .caption = "Original Amount", .part = 0.16},
    {.column = Loans::PaidAmount, .caption = "Paid Amount", .part = 0.16},
    {.column = Loans::InterestRate, .caption = "Interest %", .part = 0.1},
    {.column = Loans::AccountID, .hidden = true},
    {.column = Loans::Sequence, .hidden = true},
    {.column = Loans::Balance, .caption = "Balance", .fillsRest = true, .calculated = true},
};

constexpr EmptyText::Way kWays[] = {{"New loan", command_name::kNew}};

constexpr EmptyText kEmpty{"No loans yet", "Enter one in the line above.", kWays};

}  // namespace

extern constexpr ViewDefinition kLoansView{
    .view = vwLoan,
    .columns = kColumns,
    .rowName = "Loan",
    .totalLabel = "Total Loans:",
    .firstTotal = Loans::Balance,
    .ofAccount = true,
    // Allowed for the account; its type then rules it out.
    .exports = ExportOf::ShownAccount,
    .accountType = account_type::kLoan,
    .empty = &kEmpty,
    .cell = Calculate,
};

}  // namespace clb
