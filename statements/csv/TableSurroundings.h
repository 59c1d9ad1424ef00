// What a table says outside its rows.
#pragma once
#include "statements/csv/CsvSolver.h"

namespace clb {

/// Takes the account and the currency of the whole file from the header row and from what stands
/// above it. A currency that the rows name stays.
void TakeSurroundings(const CsvTable& table, CsvSolution& solution);

/// Whether nothing but the names of the columns is there: a period without transactions.
[[nodiscard]] bool HasNoRows(const CsvTable& table);

}  // namespace clb
