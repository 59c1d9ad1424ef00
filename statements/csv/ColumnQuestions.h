// The questions which column of a table is what.
#pragma once
#include <cstddef>

#include "statements/csv/CsvColumns.h"
#include "statements/csv/CsvTable.h"
#include "statements/form/StatementReader.h"

namespace clb {

/// Of a table that lacks a date or an amount: the user may know its columns.
[[nodiscard]] OpenQuestion UnknownColumns(const CsvTable& table, const CsvColumns& columns);

/// Which of the first `equals` sources of amounts counts; chosen: the one that is proposed.
[[nodiscard]] OpenQuestion WhichAmount(const CsvTable& table, const CsvColumns& columns,
                                       std::size_t equals, std::size_t chosen);

}  // namespace clb
