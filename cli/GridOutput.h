#pragma once
#include "cli/Table.h"
#include "grid/CVGrid.h"
#include "json/ValueJson.h"

#include <vector>

#include <string>

namespace clb {

/// The grid's rows as shown: visible columns in their order on the screen, headings and footers of
/// groups as lines. also: hidden columns to be shown behind them.
Table GridTable(CVGrid& grid, const std::vector<std::int32_t>& also = {});
/// The grid's data rows: one object each, the same columns by field name (calculated ones by
/// caption).
Json GridJson(CVGrid& grid, const std::vector<std::int32_t>& also = {});

}  // namespace clb
