// The rules of GROUP BY.
#pragma once
#include <vector>

#include "engine/sql/Ast.h"

namespace clb {

/// Whether two expressions are the same for every value of the query's literals. Two literals never
/// count as the same, because a plan does not include their values.
bool SameExpression(const Expression& a, const Expression& b);

/// Throws EngineError if a checked expression of a grouped query uses a column that is neither
/// inside an aggregate function nor in GROUP BY.
void RequireGrouped(const Expression& e, const std::vector<ExpressionPtr>& groupBy);

}  // namespace clb
