// The view of an account's transactions.

#include "data/ViewColumns.h"
#include "data/clsDatabase.h"
#include "views/MenuNames.h"
#include "views/ViewDefinition.h"

namespace clb {
namespace {

std::vector<GridValueItem> Categories(clsDatabase& data, const ShownMonth& month)
{
    Recordset records;
    data.Fill(records,
              "SELECT Category FROM Budget WHERE Budget.Year = " + month.year +
                  " AND Period = " + std::to_string(month.period),
              true);
    std::vector<GridValueItem> categories;
    for (; !records.AtEnd(); records.MoveNext()) {
        const Value& name = records.Get("Category");
        categories.push_back({name, ToText(name)});
    }
    return categories;
}

constexpr ColumnList kCategories{{cell_control::kComboBox, 5, 2000}, Categories};

constexpr ViewColumn kColumns[] = {
    {.column = Register::PostDate, .caption = "Date", .part = 0.12},
    {.column = Register::Description, .caption = "Description", .part = 0.3},
    {.column = Register::Amount, .caption = "Amount", .part = 0.1},
    {.column = Register::CheckID, .caption = "Check #", .part = 0.1},
    {.column = Register::Category, .caption = "Category", .part = 0.1, .list = &kCategories},
    {.column = Register::Notes, .fillsRest = true},
    {.column = Register::AccountID, .hidden = true},
    {.column = Register::Year, .hidden = true},
    {.column = Register::Period, .hidden = true},
    {.column = Register::Fitid, .hidden = true},
    {.column = Register::Sequence, .hidden = true},
    {.column = Register::SubSequence, .hidden = true},
};

constexpr EmptyText::Way kWays[] = {{"New transaction", command_name::kNew},
                                    {"Import a statement", command_name::kImport}};

constexpr EmptyText kEmpty{"No transactions in {month}",
                           "Enter one in the line above, import a statement, or go to another "
                           "month with Back and Forward.",
                           kWays};

}  // namespace

extern constexpr ViewDefinition kRegisterView{
    .view = vwAccount,
    .columns = kColumns,
    .rowName = "Transaction",
    .totalLabel = "Balance:",
    .firstTotal = Register::Amount,
    .ofAccount = true,
    .transactions = true,
    .ofMonth = true,
    .exports = ExportOf::ShownAccount,
    .empty = &kEmpty,
};

}  // namespace clb
