// A column of a result set.
#pragma once
#include <cstddef>
#include <string>

#include "base/Value.h"

namespace clb {

/// One column of a result set.
struct Field {
    std::string name;
    FieldType type = FieldType::Text;
    std::size_t width = 0;   ///< largest number of characters; 0: unlimited, or not a text
    bool updatable = false;  ///< a column of the only table, not an expression
    bool counter = false;    ///< the database numbers it when a row is added
};

}  // namespace clb
