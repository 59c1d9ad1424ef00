// The view of an account's investments.

#include "data/AccountKind.h"
#include "data/ViewColumns.h"
#include "views/MenuNames.h"
#include "views/ViewDefinition.h"

namespace clb {
namespace {

constexpr ViewColumn kColumns[] = {
    {.column = Holdings::StockSymbol, .caption = "Symbol", .part = 0.1},
    {.column = Holdings::StockName, .caption = "Name", .part = 0.3},
    {.column = Holdings::PurchaseDate, .caption = "Purchase Date", .part = 0.1},
    {.column = Holdings::Quantity, .caption = "Quantity", .part = 0.1},
    {.column = Holdings::PurchasePrice, .caption = "Purchase Price", .part = 0.1},
    {.column = Holdings::LastPrice, .caption = "Last Price", .part = 0.1},
    {.column = Holdings::Total, .caption = "Total", .fillsRest = true},
    {.column = Holdings::AccountID, .hidden = true},
    {.column = Holdings::Sequence, .hidden = true},
};

constexpr EmptyText::Way kWays[] = {{"New holding", command_name::kNew}};

constexpr EmptyText kEmpty{"No holdings yet", "Enter one in the line above.", kWays};

}  // namespace

extern constexpr ViewDefinition kHoldingsView{
    .view = vwInvestment,
    .columns = kColumns,
    .rowName = "Holding",
    .totalLabel = "Total Investment:",
    .firstTotal = Holdings::Total,
    .ofAccount = true,
    // Allowed for the account; its type then rules it out.
    .exports = ExportOf::ShownAccount,
    .accountType = account_type::kInvestment,
    .empty = &kEmpty,
};

}  // namespace clb
