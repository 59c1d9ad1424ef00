// How literals become parameters.
#pragma once
#include <cstddef>
#include <string>

#include "base/Value.h"
#include "engine/sql/Lexer.h"
#include "engine/storage/Catalogue.h"

namespace clb {

/// How one literal of a query is passed to the storage.
struct Parameter {
    std::size_t literal = 0;
    bool negated = false;
    bool cutToMoney = false;  ///< pass the largest amount that is not greater than the literal
    ColumnType type;          ///< the type to which it is converted otherwise
    std::string column;       ///< for the message if the value does not fit
};

/// Returns the value to bind. Throws EngineError if the literal does not fit.
Value ParameterValue(const Parameter& parameter, const Literal& literal);

}  // namespace clb
