// Converts values for the columns that store them.
#pragma once
#include <string_view>

#include "base/Value.h"
#include "engine/storage/Catalogue.h"

namespace clb {

/// Converts a value to the type of a column. Throws EngineError if the value is of another kind,
/// out of range, or a text longer than the column. The message names the column.
Value ConvertForColumn(Value value, const ColumnType& type, std::string_view column);

}  // namespace clb
