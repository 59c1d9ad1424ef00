#pragma once
#include "automation/ValueJson.h"
#include "cli/Table.h"
#include "grid/CVGrid.h"

#include <string>

namespace clb {

/// The grid's rows as shown: visible columns in their order on the screen, headings and footers of
/// groups as lines.
Table GridTable(CVGrid& grid);
/// The grid's data rows: one object each, visible columns by field name (calculated ones by
/// caption).
Json GridJson(CVGrid& grid);

}  // namespace clb
