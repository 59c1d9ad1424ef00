// The view of the accounts of one type.

#include "data/ViewColumns.h"
#include "views/MenuNames.h"
#include "views/ViewDefinition.h"

namespace clb {
namespace {

constexpr ViewColumn kColumns[] = {
    {.column = AccountType::Description, .caption = "Description", .part = 0.4},
    {.column = AccountType::AccountID, .caption = "Account #", .part = 0.2},
    {.column = AccountType::OpeningBalance, .caption = "Opening Balance", .part = 0.2},
    {.column = AccountType::TotalBalance,
     .caption = "Current Balance",
     .fillsRest = true,
     .readOnly = true},
    {.column = AccountType::Sequence, .hidden = true},
    {.column = AccountType::Type, .hidden = true},
};

constexpr EmptyText::Way kWays[] = {{"New account", command_name::kNew}};

constexpr EmptyText kEmpty{"No accounts of this type", "Enter one in the line above.", kWays};

}  // namespace

extern constexpr ViewDefinition kAccountTypeView{
    .view = vwAccountType,
    .columns = kColumns,
    .rowName = "Account",
    .totalLabel = "Totals:",
    .firstTotal = AccountType::OpeningBalance,
    .secondTotal = AccountType::TotalBalance,
    .accounts = &kAccountTypeAccount,
    .ofType = true,
    .exports = ExportOf::CurrentRow,
    .empty = &kEmpty,
};

}  // namespace clb
