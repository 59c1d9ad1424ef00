// Describes a table to a user who chooses among its columns.
#pragma once
#include "statements/csv/CsvSolver.h"
#include "statements/csv/CsvTable.h"
#include "statements/form/StatementTable.h"

namespace clb {

/// The table's columns and what they hold under the solution.
[[nodiscard]] StatementTable Describe(const CsvTable& table, const CsvSolution& solution);

}  // namespace clb
