#include "engine/sql/Typing.h"

#include <algorithm>

#include "engine/storage/Refusals.h"

namespace clb {
namespace {

/// Returns the type in which a number literal is compared with a value of the type.
FieldType TypeForLiteral(const Expression& literal, FieldType other)
{
    if (other == FieldType::Long)
        return IsKind(literal, LiteralKind::Whole) ? FieldType::Long : FieldType::Double;
    return other;
}

FieldType WithoutBoolean(FieldType type)
{
    return type == FieldType::Boolean ? FieldType::Long : type;
}

FieldType CommonNumber(FieldType a, FieldType b)
{
    a = WithoutBoolean(a);
    b = WithoutBoolean(b);
    if (a == b)
        return a;
    const bool money = a == FieldType::Money || b == FieldType::Money;
    const bool whole = a == FieldType::Long || b == FieldType::Long;
    return money && whole ? FieldType::Money : FieldType::Double;
}

void RequireNumbers(const Expression& a, const Expression& b)
{
    if ((!IsNumber(a.type) && !IsNullLiteral(a)) || (!IsNumber(b.type) && !IsNullLiteral(b)))
        throw refuse::TypeMismatch();
}

/// Returns the type that an operand has in arithmetic. An exact constant can count as money.
FieldType OperandType(const Expression& e, const Expression& other)
{
    if (IsNullLiteral(e))
        return IsNullLiteral(other) ? FieldType::Double : WithoutBoolean(other.type);
    if (other.type == FieldType::Money && IsExactConstant(e))
        return FieldType::Money;
    return WithoutBoolean(e.type);
}

}  // namespace

bool IsExactConstant(const Expression& e)
{
    if (e.kind == ExpressionKind::Literal)
        return e.literalKind == LiteralKind::Exact || e.literalKind == LiteralKind::Whole;
    const bool sum = e.kind == ExpressionKind::Binary &&
                     (e.operation == Operator::Add || e.operation == Operator::Subtract);
    if (!sum && e.kind != ExpressionKind::Negate)
        return false;
    return std::all_of(e.operands.begin(), e.operands.end(),
                       [](const ExpressionPtr& operand) { return IsExactConstant(*operand); });
}

FieldType CommonType(const Expression& a, const Expression& b)
{
    if (IsNullLiteral(a))
        return b.type;
    if (IsNullLiteral(b))
        return a.type;
    if (!IsNumber(a.type) || !IsNumber(b.type)) {
        if (a.type != b.type)
            throw refuse::TypeMismatch();
        return a.type;
    }
    if (IsNumberLiteral(a) && !IsNumberLiteral(b))
        return TypeForLiteral(a, b.type);
    if (IsNumberLiteral(b) && !IsNumberLiteral(a))
        return TypeForLiteral(b, a.type);
    if (a.type == FieldType::Boolean && b.type == FieldType::Boolean)
        return FieldType::Boolean;
    if ((a.type == FieldType::Money && IsExactConstant(b)) ||
        (b.type == FieldType::Money && IsExactConstant(a)))
        return FieldType::Money;
    return CommonNumber(a.type, b.type);
}

FieldType ArithmeticType(Operator operation, const Expression& a, const Expression& b)
{
    const bool texts = a.type == FieldType::Text && b.type == FieldType::Text;
    if (operation == Operator::Add && texts)
        return FieldType::Text;
    RequireNumbers(a, b);
    if (operation == Operator::Divide)
        return FieldType::Double;
    const FieldType left = OperandType(a, b);
    const FieldType right = OperandType(b, a);
    const bool money = left == FieldType::Money || right == FieldType::Money;
    if (operation == Operator::Multiply && money)
        return FieldType::Money;
    const FieldType common = CommonNumber(left, right);
    return common == FieldType::Single ? FieldType::Double : common;
}

}  // namespace clb
