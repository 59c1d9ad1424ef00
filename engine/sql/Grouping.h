#pragma once
#include <vector>

#include "engine/sql/Ast.h"

namespace clb {

/// Whether the expressions are the same whatever the statement's literals, which never count as the
/// same, since they are no part of a plan.
bool SameExpression(const Expression& a, const Expression& b);

/// Throws EngineError when a checked expression of a grouped statement uses a column that is
/// neither inside an aggregate function nor in GROUP BY.
void RequireGrouped(const Expression& e, const std::vector<ExpressionPtr>& groupBy);

}  // namespace clb
