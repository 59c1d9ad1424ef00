#pragma once
#include <cstddef>
#include <string>

#include "base/Value.h"
#include "engine/sql/Lexer.h"
#include "engine/storage/Catalogue.h"

namespace clb {

/// How one literal of the statement reaches the storage.
struct Parameter {
    std::size_t literal = 0;
    bool negated = false;
    bool cutToMoney = false;  ///< the largest amount that is not above the literal
    ColumnType type;          ///< to which it is converted otherwise
    std::string column;       ///< named when the value does not fit it
};

/// The value to bind. Throws EngineError when the literal does not fit.
Value ParameterValue(const Parameter& parameter, const Literal& literal);

}  // namespace clb
