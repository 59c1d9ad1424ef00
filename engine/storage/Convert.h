#pragma once
#include <string_view>

#include "base/Value.h"
#include "engine/storage/Catalogue.h"

namespace clb {

/// The value as a column of the type stores it. Throws EngineError for a value of another kind, out
/// of range, or a text longer than the column, whose name goes into the message.
Value ConvertForColumn(Value value, const ColumnType& type, std::string_view column);

}  // namespace clb
