#include "engine/sql/Checker.h"

#include "base/Text.h"
#include "engine/sql/Typing.h"
#include "engine/storage/Refusals.h"

namespace clb {
namespace {

FieldType LiteralType(LiteralKind kind)
{
    switch (kind) {
        case LiteralKind::Text: return FieldType::Text;
        case LiteralKind::Whole: return FieldType::Long;
        case LiteralKind::Exact:
        case LiteralKind::Fine: return FieldType::Double;
        case LiteralKind::Date: return FieldType::Date;
    }
    return FieldType::Text;
}

FieldType NegatedType(const Expression& operand)
{
    if (!IsNumber(operand.type) && !IsNullLiteral(operand))
        throw refuse::TypeMismatch();
    if (operand.type == FieldType::Boolean)
        return FieldType::Long;
    return operand.type == FieldType::Single ? FieldType::Double : operand.type;
}

std::string WrittenName(const Expression& column)
{
    return column.qualifier.empty() ? column.name : column.qualifier + "." + column.name;
}

}  // namespace

void Checker::CheckCondition(Expression& expression, bool aggregatesAllowed)
{
    Check(expression, aggregatesAllowed);
    RequireCondition(expression);
}

void Checker::Check(Expression& e, bool aggregatesAllowed)
{
    aggregatesAllowed_ = aggregatesAllowed;
    if (e.kind == ExpressionKind::Call) {
        CheckCall(e);
        return;
    }
    for (const ExpressionPtr& operand : e.operands) {
        Check(*operand, aggregatesAllowed);
        e.aggregates = e.aggregates || operand->aggregates;
    }
    switch (e.kind) {
        case ExpressionKind::Literal: e.type = LiteralType(e.literalKind); break;
        case ExpressionKind::NullValue: e.type = FieldType::Text; break;
        case ExpressionKind::Column: CheckColumn(e); break;
        case ExpressionKind::Negate: e.type = NegatedType(*e.operands[0]); break;
        case ExpressionKind::Binary: CheckBinary(e); break;
        case ExpressionKind::Not:
            RequireCondition(*e.operands[0]);
            e.type = FieldType::Boolean;
            break;
        case ExpressionKind::In:
        case ExpressionKind::Between:
            for (std::size_t i = 1; i < e.operands.size(); ++i)
                CommonType(*e.operands[0], *e.operands[i]);
            e.type = FieldType::Boolean;
            break;
        case ExpressionKind::Like: RequireText(*e.operands[1]); [[fallthrough]];
        case ExpressionKind::Truth:
        case ExpressionKind::NullTest:
        case ExpressionKind::Call: e.type = FieldType::Boolean; break;
    }
}

void Checker::CheckColumn(Expression& e) const
{
    for (std::size_t source = 0; source < sources_.size(); ++source) {
        if (!e.qualifier.empty() && !EqualsIgnoringCase(sources_[source].alias, e.qualifier))
            continue;
        const ColumnInfo* column = sources_[source].table->Find(e.name);
        if (!column)
            continue;
        if (e.column)
            throw refuse::AmbiguousColumn(WrittenName(e));
        e.column = column;
        e.source = source;
        e.type = column->type.type;
    }
    if (!e.column)
        throw refuse::NoSuchColumn(WrittenName(e));
}

std::vector<std::size_t> Checker::SourcesNamed(std::string_view qualifier) const
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < sources_.size(); ++i)
        if (qualifier.empty() || EqualsIgnoringCase(sources_[i].alias, qualifier))
            found.push_back(i);
    if (found.empty())
        throw refuse::NoSuchColumn(std::string(qualifier) + ".*");
    return found;
}

void Checker::CheckBinary(Expression& e)
{
    const Expression& left = *e.operands[0];
    const Expression& right = *e.operands[1];
    switch (e.operation) {
        case Operator::Add:
        case Operator::Subtract:
        case Operator::Multiply:
        case Operator::Divide: e.type = ArithmeticType(e.operation, left, right); break;
        case Operator::Concatenate: e.type = FieldType::Text; break;
        case Operator::And:
        case Operator::Or:
            RequireCondition(left);
            RequireCondition(right);
            e.type = FieldType::Boolean;
            break;
        default:
            CommonType(left, right);
            e.type = FieldType::Boolean;
            break;
    }
}

void Checker::CheckCall(Expression& e)
{
    const bool allowed = aggregatesAllowed_;
    const bool aggregate = IsAggregate(e.function);
    if (aggregate && !allowed)
        throw refuse::WrongSql("Cannot have an aggregate function here: '" + e.name + "'.");
    for (const ExpressionPtr& operand : e.operands) {
        Check(*operand, allowed && !aggregate);
        e.aggregates = e.aggregates || operand->aggregates;
    }
    aggregatesAllowed_ = allowed;
    if (aggregate)
        CheckAggregate(e);
    else
        CheckScalar(e);
}

void Checker::CheckAggregate(Expression& e)
{
    e.aggregates = true;
    if (e.function == Function::Count) {
        e.type = FieldType::Long;
        return;
    }
    const FieldType type = e.operands[0]->type;
    e.type = type;
    if (e.function == Function::Min || e.function == Function::Max)
        return;
    RequireNumber(*e.operands[0]);
    if (e.function == Function::Avg || type == FieldType::Single || type == FieldType::Text)
        e.type = FieldType::Double;
    else if (type == FieldType::Boolean)
        e.type = FieldType::Long;
}

void Checker::CheckScalar(Expression& e)
{
    const Expression& first = *e.operands[0];
    switch (e.function) {
        case Function::Year:
        case Function::Month:
        case Function::Day: RequireDate(first); break;
        case Function::Left:
        case Function::Right:
        case Function::Mid:
            for (std::size_t i = 1; i < e.operands.size(); ++i)
                RequireNumber(*e.operands[i]);
            break;
        case Function::Round:
            for (const ExpressionPtr& operand : e.operands)
                RequireNumber(*operand);
            break;
        case Function::IIf: RequireCondition(first); break;
        default: break;
    }
    e.type = ScalarType(e);
}

FieldType Checker::ScalarType(const Expression& e)
{
    const FieldType first = e.operands[0]->type;
    switch (e.function) {
        case Function::Year:
        case Function::Month:
        case Function::Day:
        case Function::Len:
        case Function::CLng: return FieldType::Long;
        case Function::Abs: return NegatedType(*e.operands[0]);
        case Function::Round:
            return first == FieldType::Money ? FieldType::Money : FieldType::Double;
        case Function::IIf: return CommonType(*e.operands[1], *e.operands[2]);
        case Function::Nz:
            return e.operands.size() > 1 ? CommonType(*e.operands[0], *e.operands[1]) : first;
        case Function::IsNull: return FieldType::Boolean;
        case Function::CCur: return FieldType::Money;
        case Function::CDbl: return FieldType::Double;
        default: return FieldType::Text;
    }
}

void Checker::RequireText(const Expression& e)
{
    if (e.type != FieldType::Text)
        throw refuse::TypeMismatch();
}

void Checker::RequireNumber(const Expression& e)
{
    if (!IsNumber(e.type) && !IsNullLiteral(e))
        throw refuse::TypeMismatch();
}

void Checker::RequireDate(const Expression& e)
{
    if (e.type != FieldType::Date && !IsNullLiteral(e))
        throw refuse::TypeMismatch();
}

void Checker::RequireCondition(const Expression& e)
{
    RequireNumber(e);
}

}  // namespace clb
