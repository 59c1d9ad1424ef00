// Columns that the user names.
#pragma once
#include <string_view>

#include "statements/csv/CsvColumns.h"

namespace clb {

/// Puts the columns of a text such as "date=1,amount=Betrag-,text=3+5" in place of those found.
/// Throws NotAStatement if it names a field or a column that there is not.
void ApplyColumnSpec(std::string_view spec, const CsvTable& table, CsvColumns& columns);

}  // namespace clb
