// Prints the grid.
#pragma once
#include <cstdint>
#include <vector>

#include "cli/Table.h"
#include "grid/CVGrid.h"
#include "json/ValueJson.h"

namespace clb {

/// The grid's rows as shown: the visible columns in their order on the screen, and a line for each
/// heading and footer of a group. also: hidden columns to add at the end.
[[nodiscard]] Table GridTable(CVGrid& grid, const std::vector<std::int32_t>& also = {});
/// The grid's data rows, one object each, with the same columns by field name (calculated columns
/// by caption).
[[nodiscard]] Json GridJson(CVGrid& grid, const std::vector<std::int32_t>& also = {});

}  // namespace clb
