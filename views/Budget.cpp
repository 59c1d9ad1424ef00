// The view of a month's budget.

#include <cmath>

#include "data/BudgetFigures.h"
#include "data/ViewColumns.h"
#include "views/MenuNames.h"
#include "views/ViewDefinition.h"

namespace clb {
namespace {

constexpr const char* kLineBreak = "\r\n";

/// The difference of two amounts without the error of binary fractions, if an amount can hold it.
double WithoutNoise(double difference)
{
    constexpr double kMostAmount = 9e14;
    return std::abs(difference) < kMostAmount ? Money::FromDouble(difference).ToDouble()
                                              : difference;
}

Value Cell(const DrawnRow& row, std::int32_t column)
{
    return row.grid.CellValue(row.row, column);
}

void Calculate(const DrawnRow& row, std::int32_t column, Value& value)
{
    if (column == Budget::Actual) {
        const Money actual =
            BudgetFigures(row.data, row.shown).ActualOf(ToText(Cell(row, Budget::Category)));
        row.lastActual = actual.ToDouble();
        value = actual;
    } else if (column == Budget::Difference) {
        // Spending is negative, so a negative difference is what was spent beyond the budget.
        value = WithoutNoise(row.lastActual - ToMoney(Cell(row, Budget::Amount)).ToDouble());
    }
}

/// Whether more money went out than was planned. Income that has not come yet is no warning.
bool Overspent(const DrawnRow& row)
{
    if (row.grid.Rows().Kind(row.row) != GridRowKind::Data)
        return false;
    const Money actual =
        BudgetFigures(row.data, row.shown).ActualOf(ToText(Cell(row, Budget::Category)));
    return actual < Money() && actual < ToMoney(Cell(row, Budget::Amount));
}

bool Warns(const DrawnRow& row, std::int32_t column)
{
    return (column == Budget::Actual || column == Budget::Difference) && Overspent(row);
}

std::string Tip(const DrawnRow& row)
{
    if (row.grid.Rows().Kind(row.row) == GridRowKind::GroupHeading)
        return {};
    Recordset spent =
        BudgetFigures(row.data, row.shown).TransactionsOf(ToText(Cell(row, Budget::Category)));
    std::string tip = "Number of transactions: " + std::to_string(spent.RecordCount());
    for (; !spent.AtEnd(); spent.MoveNext())
        tip += std::string(kLineBreak) + kLineBreak +
               "Date: " + row.grid.DateText(spent.Get("PostDate")) + kLineBreak +
               "Description: " + ToText(spent.Get("Description")) + kLineBreak +
               "Amount: " + ToMoney(spent.Get("Amount")).Dollars();
    return tip;
}

std::string Footer(const DrawnRow& row)
{
    const BudgetFigures::GroupSums sums =
        BudgetFigures(row.data, row.shown).SumsOf(row.grid.Rows().GroupValue(row.row));
    return "Total (budgeted/actual): " + sums.budgeted.Dollars() + " / " + sums.actual.Dollars();
}

constexpr ViewColumn kColumns[] = {
    {.column = Budget::Category, .caption = "Category", .part = 0.25},
    {.column = Budget::Amount, .caption = "Budgeted", .part = 0.2},
    {.column = Budget::Sequence, .hidden = true},
    {.column = Budget::Year, .hidden = true},
    {.column = Budget::Period, .hidden = true},
    {.column = Budget::CategoryGroup, .caption = "Group"},
    {.column = Budget::Actual,
     .caption = "Actual",
     .part = 0.2,
     .calculated = true,
     .before = Budget::CategoryGroup},
    {.column = Budget::Difference,
     .caption = "Difference",
     .part = 0.2,
     .calculated = true,
     .before = Budget::CategoryGroup},
};

constexpr GroupDefinition kByGroup{Budget::CategoryGroup,
                                   "GroupingValue & ' (' & TotalChildCount & ' items)'"};

constexpr EmptyText::Way kWays[] = {{"Copy the previous month's budget", command_name::kCopy},
                                    {"New category", command_name::kNew}};

constexpr EmptyText kEmpty{"No budget for {month}",
                           "Enter a category and its amount in the line above, or start from the "
                           "month before.",
                           kWays};

}  // namespace

extern constexpr ViewDefinition kBudgetView{
    .view = vwBudget,
    .columns = kColumns,
    .rowName = "Budget Line",
    .totalLabel = "Month to date:",
    .firstTotal = Budget::Amount,
    .secondTotal = Budget::Actual,
    .group = &kByGroup,
    .ofMonth = true,
    .exports = ExportOf::Nothing,
    .empty = &kEmpty,
    .cell = Calculate,
    .warns = Warns,
    .warning = "overspent",
    .tip = Tip,
    .footer = Footer,
};

}  // namespace clb
