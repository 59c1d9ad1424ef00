#pragma once
#include "engine/sql/Ast.h"

namespace clb {

/// Rules of the dialect's types; the expressions given have been checked.

/// The type in which two values are compared, or in which one of the two is the answer. A literal
/// takes the other side's type where that is a number of its kind. Throws EngineError for a text or
/// a date together with anything else.
FieldType CommonType(const Expression& a, const Expression& b);

/// The type of a sum, difference, product or quotient: money stays money but for quotients and sums
/// with a number that is no whole one; quotients are double. Throws as CommonType.
FieldType ArithmeticType(Operator operation, const Expression& a, const Expression& b);

inline bool IsNullLiteral(const Expression& e)
{
    return e.kind == ExpressionKind::NullValue;
}
inline bool IsKind(const Expression& e, LiteralKind kind)
{
    return e.kind == ExpressionKind::Literal && e.literalKind == kind;
}
/// Whether it is made of literals that money holds exactly, added and subtracted: beside money it
/// is money, to the last decimal.
bool IsExactConstant(const Expression& e);
/// Long, Money, Double, Single and Boolean, which counts as -1 and 0.
inline bool IsNumber(FieldType type)
{
    return type != FieldType::Text && type != FieldType::Date;
}

}  // namespace clb
