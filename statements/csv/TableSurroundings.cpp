#include "statements/csv/TableSurroundings.h"

#include <algorithm>

#include "statements/csv/ColumnNames.h"
#include "statements/csv/CsvCells.h"
#include "statements/csv/OwnAccount.h"
#include "statements/csv/RowCurrency.h"
#include "statements/form/CurrencyMarks.h"

namespace clb {
namespace {

/// Takes a cell that names something, and the cell after it.
void TakePair(std::string_view name, const std::string& value, CsvSolution& solution)
{
    const ColumnRole role = RoleOf(name).role;
    if (role == ColumnRole::Currency && solution.currency.empty())
        solution.currency = CurrencyOf(value);
}

}  // namespace

void TakeSurroundings(const CsvTable& table, CsvSolution& solution)
{
    for (const AmountSource& source : solution.columns.sources)
        for (const auto& column : {source.amount, source.in, source.out})
            if (column && solution.currency.empty() && *column < table.Names().size())
                solution.currency = CurrencyInName(table.Names()[*column]);
    for (const auto& record : table.Preamble())
        for (std::size_t i = 0; i + 1 < record.size(); ++i)
            TakePair(record[i], record[i + 1], solution);
    solution.account = NumberAbove(table);
}

bool HasNoRows(const CsvTable& table)
{
    bool empty = true;
    table.ForEachRecord([&empty](const CsvRecord& record) {
        empty = empty && std::none_of(record.fields.begin(), record.fields.end(), IsAmountCell);
    });
    return empty && table.HasHeader();
}

}  // namespace clb
