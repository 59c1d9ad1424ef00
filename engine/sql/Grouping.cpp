#include "engine/sql/Grouping.h"

#include <algorithm>

#include "engine/storage/Refusals.h"

namespace clb {

bool SameExpression(const Expression& a, const Expression& b)
{
    if (a.kind != b.kind || a.kind == ExpressionKind::Literal || a.negated != b.negated ||
        a.operands.size() != b.operands.size())
        return false;
    if (a.kind == ExpressionKind::Column)
        return a.source == b.source && a.column == b.column;
    if (a.kind == ExpressionKind::Binary && a.operation != b.operation)
        return false;
    if (a.kind == ExpressionKind::Call && a.function != b.function)
        return false;
    if (a.kind == ExpressionKind::Truth && a.truth != b.truth)
        return false;
    return std::equal(
        a.operands.begin(), a.operands.end(), b.operands.begin(),
        [](const ExpressionPtr& x, const ExpressionPtr& y) { return SameExpression(*x, *y); });
}

void RequireGrouped(const Expression& e, const std::vector<ExpressionPtr>& groupBy)
{
    if (e.kind == ExpressionKind::Call && IsAggregate(e.function))
        return;
    if (std::any_of(groupBy.begin(), groupBy.end(),
                    [&](const ExpressionPtr& key) { return SameExpression(*key, e); }))
        return;
    if (e.kind == ExpressionKind::Column)
        throw refuse::NotGrouped(e.column->name);
    for (const ExpressionPtr& operand : e.operands)
        RequireGrouped(*operand, groupBy);
}

}  // namespace clb
