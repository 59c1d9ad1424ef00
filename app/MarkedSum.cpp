#include "app/MarkedSum.h"

#include "app/StatementWords.h"
#include "app/frmController.h"
#include "base/RuntimeError.h"

namespace clb {
namespace {

/// The sum of a column's cells in the marked rows.
Money SumOf(CVGrid& grid, std::int32_t column)
{
    Money sum;
    const std::size_t count = grid.Rows().Count();
    for (std::size_t row = 1; row <= count; ++row)
        if (grid.Marks().Contains(grid.Rows().Identity(row)))
            sum = sum + ToMoney(grid.CellValue(row, column));
    return sum;
}

}  // namespace

void MarkedSum::Connect()
{
    window_.Grid.Marks().Changed().connect([this] { Follow(); });
    window_.Grid.AfterUpdate().connect([this] { Follow(); });
}

void MarkedSum::Follow()
{
    CVGrid& grid = window_.Grid;
    const std::size_t marked = grid.Marks().Count();
    if (marked == 0)
        return window_.notices.Inform("marks", "");
    std::string text = statement_words::Counted(marked, "row");
    const ViewDefinition& view = window_.View().Definition();
    const std::int32_t column = view.secondTotal != 0 ? view.secondTotal : view.firstTotal;
    try {
        if (column != 0)
            text += ", " + SumOf(grid, column).Grouped();
    } catch (const RuntimeError&) {
        text += ", no sum: a figure is not an amount or too large";
    }
    window_.notices.Inform("marks", text);
}

}  // namespace clb
