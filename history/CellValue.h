// Stored cells as values of the program.
#pragma once
#include <string>

#include "base/Value.h"
#include "engine/storage/PackedCells.h"

namespace clb {

/// The cell as a value of the column's type. A cell that holds something else, as other programs
/// may write it, becomes its text; raw bytes become a text in words, such as "2 raw bytes".
Value ValueOf(const StoredCell& cell, FieldType type);

}  // namespace clb
