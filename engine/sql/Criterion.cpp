#include "engine/sql/Criterion.h"

#include <sqlite3.h>

#include <cmath>

#include "engine/sql/TokenReader.h"
#include "engine/storage/Refusals.h"

namespace clb {
namespace {

int Sign(double difference)
{
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

int CompareMoney(Money money, const Literal& literal, bool negated)
{
    if (literal.tooLarge)
        return negated ? 1 : -1;
    const std::int64_t scaled = negated ? -literal.scaled : literal.scaled;
    if (money.Scaled() != scaled || literal.kind != LiteralKind::Fine)
        return money.Scaled() < scaled ? -1 : money.Scaled() > scaled ? 1 : 0;
    return negated ? 1 : -1;  // the part that was cut off makes the literal larger
}

bool TakeField(TokenReader& in, Criterion& criterion)
{
    const Token& token = in.Next();
    if (token.kind != TokenKind::Name && token.kind != TokenKind::QuotedName)
        return false;
    criterion.field = token.text;
    return true;
}

bool TakeOperator(TokenReader& in, Criterion& criterion)
{
    const auto operation = in.TakeComparison();
    criterion.like = !operation && in.TakeWord("LIKE");
    criterion.operation = operation.value_or(Operator::Equal);
    return operation || criterion.like;
}

bool TakeLiteral(TokenReader& in, Criterion& criterion)
{
    criterion.negated = in.TakeSymbol("-");
    criterion.truth = in.TakeTruth();
    if (criterion.truth)
        return !criterion.negated;
    const Token& token = in.Next();
    if (!IsLiteral(token))
        return false;
    criterion.literal = in.LiteralOf(token);
    return !criterion.negated || token.kind == TokenKind::Number;
}

}  // namespace

Criterion Criterion::Parse(std::string_view text)
{
    Criterion criterion;
    LexedSql lexed;
    try {
        lexed = Lex(text);
    } catch (const EngineError&) {
        throw refuse::Criterion(text);
    }
    TokenReader in(lexed);
    if (!TakeField(in, criterion) || !TakeOperator(in, criterion) || !TakeLiteral(in, criterion) ||
        in.Peek().kind != TokenKind::End)
        throw refuse::Criterion(text);
    return criterion;
}

void Criterion::RequireType(FieldType type) const
{
    const bool text = !truth && literal.kind == LiteralKind::Text;
    const bool date = !truth && literal.kind == LiteralKind::Date;
    const bool fits = like || type == FieldType::Text ? text
                      : type == FieldType::Date       ? date
                                                      : !text && !date;
    if (!fits)
        throw refuse::TypeMismatch();
}

std::optional<Value> Criterion::Sought(FieldType type) const
{
    if (type == FieldType::Text)
        return literal.text;
    if (type == FieldType::Date)
        return literal.date;
    const double number = truth ? (*truth ? -1 : 0) : negated ? -literal.number : literal.number;
    switch (type) {
        case FieldType::Boolean: return number != 0;
        case FieldType::Double: return number;
        case FieldType::Single: return static_cast<float>(number);
        case FieldType::Long:
            if (number != std::trunc(number) || std::abs(number) > 2147483648.0 ||
                number == 2147483648.0)
                return std::nullopt;
            return static_cast<std::int32_t>(number);
        default: break;
    }
    if (truth)
        return Money::FromUnits(*truth ? -1 : 0);
    if (literal.kind == LiteralKind::Fine)
        return std::nullopt;
    return Money::FromScaled(negated ? -literal.scaled : literal.scaled);
}

bool Criterion::Matches(const Value& value) const
{
    if (IsNull(value))
        return false;
    if (like)
        return sqlite3_strlike(literal.text.c_str(), ToText(value).c_str(), 0) == 0;
    const int order = Compare(value);
    switch (operation) {
        case Operator::Equal: return order == 0;
        case Operator::NotEqual: return order != 0;
        case Operator::Less: return order < 0;
        case Operator::LessEqual: return order <= 0;
        case Operator::Greater: return order > 0;
        default: return order >= 0;
    }
}

int Criterion::Compare(const Value& value) const
{
    if (const auto* text = std::get_if<std::string>(&value))
        return text->compare(literal.text);
    if (const auto* date = std::get_if<Date>(&value))
        return *date < literal.date ? -1 : *date > literal.date ? 1 : 0;
    if (const auto* money = std::get_if<Money>(&value); money && !truth)
        return CompareMoney(*money, literal, negated);
    const double number = truth ? (*truth ? -1 : 0) : negated ? -literal.number : literal.number;
    if (const auto* yes = std::get_if<bool>(&value))
        return Sign((*yes ? -1 : 0) - (number != 0 ? -1 : 0));
    if (const auto* single = std::get_if<float>(&value))
        return Sign(static_cast<double>(*single) - static_cast<double>(static_cast<float>(number)));
    return Sign(ToDouble(value) - number);
}

}  // namespace clb
