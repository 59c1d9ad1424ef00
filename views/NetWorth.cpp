// The view of all accounts.

#include "data/AccountKind.h"
#include "data/ViewColumns.h"
#include "views/MenuNames.h"
#include "views/ViewDefinition.h"

namespace clb {
namespace {

std::vector<GridValueItem> AccountTypes(clsDatabase& /*data*/, const ShownMonth& /*month*/)
{
    std::vector<GridValueItem> types;
    for (const AccountKind& kind : kAccountKinds)
        types.push_back({std::string(kind.type), kind.type});
    return types;
}

constexpr ColumnList kTypes{{cell_control::kDropDown, 5, 0}, AccountTypes};

constexpr ViewColumn kColumns[] = {
    {.column = NetWorth::Description, .caption = "Description", .part = 0.3},
    {.column = NetWorth::Type, .caption = "Type", .part = 0.1, .list = &kTypes},
    {.column = NetWorth::AccountID, .caption = "Account #", .part = 0.2},
    {.column = NetWorth::OpeningBalance, .caption = "Opening Balance", .part = 0.2},
    {.column = NetWorth::TotalBalance,
     .caption = "Current Balance",
     .fillsRest = true,
     .readOnly = true},
    {.column = NetWorth::Sequence, .hidden = true},
};

constexpr EmptyText::Way kWays[] = {{"New account", command_name::kNew},
                                    {"Import a statement", command_name::kImport}};

constexpr EmptyText kEmpty{"No accounts yet",
                           "Enter your first account in the line above, or import a statement of "
                           "your bank and let it make the account.",
                           kWays};

}  // namespace

extern constexpr ViewDefinition kNetWorthView{
    .view = vwNetWorth,
    .columns = kColumns,
    .rowName = "Account",
    .totalLabel = "Total Net Worth:",
    .firstTotal = NetWorth::OpeningBalance,
    .secondTotal = NetWorth::TotalBalance,
    .accounts = &kNetWorthAccount,
    .exports = ExportOf::CurrentRow,
    .empty = &kEmpty,
};

}  // namespace clb
