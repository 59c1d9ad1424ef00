#include "engine/Grouping.h"

#include "engine/Errors.h"

#include <algorithm>

namespace clb
{
namespace
{

/// The same expression; literals never count as the same, since they are no part of a plan.
bool Same(const Expression& a, const Expression& b)
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
    for (std::size_t i = 0; i < a.operands.size(); ++i)
        if (!Same(*a.operands[i], *b.operands[i]))
            return false;
    return true;
}

}  // namespace

void RequireGrouped(const Expression& e, const std::vector<ExpressionPtr>& groupBy)
{
    if (e.kind == ExpressionKind::Call && IsAggregate(e.function))
        return;
    if (std::any_of(groupBy.begin(), groupBy.end(),
                    [&](const ExpressionPtr& key) { return Same(*key, e); }))
        return;
    if (e.kind == ExpressionKind::Column)
        throw refuse::NotGrouped(e.column->name);
    for (const ExpressionPtr& operand : e.operands)
        RequireGrouped(*operand, groupBy);
}

}  // namespace clb
