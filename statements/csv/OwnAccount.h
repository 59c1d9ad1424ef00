// Which column holds the own account, and its number above the table.
#pragma once
#include <cstddef>
#include <optional>
#include <string>

#include "statements/csv/AmountColumns.h"
#include "statements/csv/CsvTable.h"

namespace clb {

/// The number of the own account as it stands above the table; empty if none does.
[[nodiscard]] std::string NumberAbove(const CsvTable& table);

/// The column of the own account. Columns of other parties get that role, further ones of the own
/// account are ignored. numberAbove: see NumberAbove.
[[nodiscard]] std::optional<std::size_t> ChooseAccount(ColumnRoles& roles,
                                                       const std::string& numberAbove);

}  // namespace clb
