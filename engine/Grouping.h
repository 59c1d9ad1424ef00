#pragma once
#include "engine/Ast.h"

#include <vector>

namespace clb
{

/// Throws EngineError when a checked expression of a grouped statement uses a column that is
/// neither inside an aggregate function nor in GROUP BY.
void RequireGrouped(const Expression& e, const std::vector<ExpressionPtr>& groupBy);

}  // namespace clb
