#include "engine/sql/Parameter.h"

#include "engine/storage/Convert.h"
#include "engine/storage/Refusals.h"

namespace clb {
namespace {

/// Larger than every amount, and exact as a double.
constexpr double kBeyondMoney = 1e19;

/// Returns the largest amount that is not greater than the literal.
Value CutToMoney(const Literal& literal, bool negated)
{
    if (literal.tooLarge)
        return negated ? -kBeyondMoney : kBeyondMoney;
    return Money::FromScaled(negated ? -literal.scaled - 1 : literal.scaled);
}

Value NumberValue(const Literal& literal, bool negated, FieldType type)
{
    const std::string sign = negated ? "-" : "";
    if (type == FieldType::Text || type == FieldType::Money)
        return sign + literal.text;
    const double number = negated ? -literal.number : literal.number;
    if (literal.kind == LiteralKind::Whole)
        return static_cast<std::int32_t>(number);
    return number;
}

}  // namespace

Value ParameterValue(const Parameter& parameter, const Literal& literal)
{
    if (parameter.cutToMoney)
        return CutToMoney(literal, parameter.negated);
    if (literal.kind == LiteralKind::Text)
        return ConvertForColumn(literal.text, parameter.type, parameter.column);
    if (literal.kind == LiteralKind::Date)
        return ConvertForColumn(literal.date, parameter.type, parameter.column);
    return ConvertForColumn(NumberValue(literal, parameter.negated, parameter.type.type),
                            parameter.type, parameter.column);
}

}  // namespace clb
