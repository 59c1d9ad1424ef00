#pragma once
#include <string>

#include "check/CheckFindings.h"
#include "engine/rows/RawSql.h"

namespace clb {

/// Finds out whether the largest number that a row can have is given already, so that the table
/// takes no new row. A counter also keeps the numbers of rows that are gone. A table that the file
/// lacks, or whose rows have no numbers, is passed over. Throws EngineError when the table cannot
/// be read.
void FindUsedUpNumbers(RawSql& raw, const std::string& table, FindingList& findings);

}  // namespace clb
