// Finds tables whose numbers are used up.
#pragma once
#include <string>

#include "check/CheckFindings.h"
#include "engine/rows/RawSql.h"

namespace clb {

/// Adds a finding if the largest number that a row can have is already used, so that the table
/// accepts no new row. A counter also remembers the numbers of deleted rows. Skips a table that the
/// file does not have, or whose rows have no numbers. Throws EngineError if the table cannot be
/// read.
void FindUsedUpNumbers(RawSql& raw, const std::string& table, FindingList& findings);

}  // namespace clb
