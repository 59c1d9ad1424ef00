// The rules of the dialect's types.
#pragma once
#include "engine/sql/Ast.h"

namespace clb {

/// The expressions below must have been checked.

/// Returns the type in which two values are compared, or the type of a result that is one of the
/// two. A literal takes the type of the other side if that is a number of its kind. Throws
/// EngineError for a text or a date together with another type.
FieldType CommonType(const Expression& a, const Expression& b);

/// Returns the type of a sum, difference, product or quotient. Money stays money, except in
/// quotients and in sums with a number that is not whole. Quotients are double. Throws like
/// CommonType.
FieldType ArithmeticType(Operator operation, const Expression& a, const Expression& b);

inline bool IsNullLiteral(const Expression& e)
{
    return e.kind == ExpressionKind::NullValue;
}
inline bool IsKind(const Expression& e, LiteralKind kind)
{
    return e.kind == ExpressionKind::Literal && e.literalKind == kind;
}
/// Whether the expression consists of added and subtracted literals that money holds exactly.
/// Together with money it counts as money and stays exact.
bool IsExactConstant(const Expression& e);
/// Long, Money, Double, Single and Boolean, which counts as -1 and 0.
inline bool IsNumber(FieldType type)
{
    return type != FieldType::Text && type != FieldType::Date;
}

}  // namespace clb
