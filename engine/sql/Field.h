#pragma once
#include <cstddef>
#include <string>

#include "base/Value.h"

namespace clb {

/// One column of a result set.
struct Field {
    std::string name;
    FieldType type = FieldType::Text;
    std::size_t width = 0;   ///< most characters that the column takes; 0 = unlimited or no text
    bool updatable = false;  ///< a column of the one table, not an expression
    bool counter = false;    ///< numbered by the database when a row is added
};

}  // namespace clb
