#include "engine/sql/Writer.h"

#include <algorithm>
#include <optional>

#include "base/Text.h"
#include "engine/sql/Typing.h"
#include "engine/storage/Errors.h"

namespace clb {
namespace {

std::string_view Symbol(Operator operation)
{
    switch (operation) {
        case Operator::Add: return " + ";
        case Operator::Subtract: return " - ";
        case Operator::Multiply: return " * ";
        case Operator::Divide: return " / ";
        case Operator::Concatenate: return " || ";
        case Operator::Equal: return " = ";
        case Operator::NotEqual: return " <> ";
        case Operator::Less: return " < ";
        case Operator::LessEqual: return " <= ";
        case Operator::Greater: return " > ";
        case Operator::GreaterEqual: return " >= ";
        case Operator::And: return " AND ";
        case Operator::Or: return " OR ";
    }
    return " ";
}

Operator Mirrored(Operator operation)
{
    switch (operation) {
        case Operator::Less: return Operator::Greater;
        case Operator::LessEqual: return Operator::GreaterEqual;
        case Operator::Greater: return Operator::Less;
        case Operator::GreaterEqual: return Operator::LessEqual;
        default: return operation;
    }
}

bool IsFineBeside(const Expression& literal, const Expression& other)
{
    return IsKind(literal, LiteralKind::Fine) && other.type == FieldType::Money;
}

/// The type in which IN compares all its values; nothing when they differ.
std::optional<FieldType> OneTypeOf(const Expression& in)
{
    const Expression& value = *in.operands[0];
    const FieldType type = CommonType(value, *in.operands[1]);
    for (std::size_t i = 1; i < in.operands.size(); ++i) {
        const Expression& other = *in.operands[i];
        if (CommonType(value, other) != type || IsFineBeside(other, value) ||
            IsFineBeside(value, other))
            return std::nullopt;
    }
    return type;
}

}  // namespace

std::string QuoteText(std::string_view text)
{
    return "'" + Replace(text, "'", "''") + "'";
}

Writer& Writer::Text(std::string_view text)
{
    sql_.append(text);
    return *this;
}

Writer& Writer::Name(std::string_view name)
{
    return Text(QuoteName(name));
}

void Writer::Write(const Expression& e)
{
    switch (e.kind) {
        case ExpressionKind::Literal: WriteLiteral(e, {e.type, 0, false}); break;
        case ExpressionKind::Truth: WriteTruth(e, FieldType::Boolean); break;
        case ExpressionKind::NullValue: Text("NULL"); break;
        case ExpressionKind::Column:
            Text("t" + std::to_string(e.source) + ".").Name(e.column->name);
            break;
        case ExpressionKind::Negate: WriteNegated(e); break;
        case ExpressionKind::Not:
            Text("(NOT ").WriteCondition(*e.operands[0]);
            Text(")");
            break;
        case ExpressionKind::Binary: WriteBinary(e); break;
        case ExpressionKind::NullTest:
            Text("(").Write(*e.operands[0]);
            Text(e.negated ? " IS NOT NULL)" : " IS NULL)");
            break;
        case ExpressionKind::In: WriteIn(e); break;
        case ExpressionKind::Between: WriteBetween(e); break;
        case ExpressionKind::Like: WriteLike(e); break;
        case ExpressionKind::Call: WriteCall(e); break;
    }
}

/// Calculations check what they make themselves; only a column's cell may hold anything.
void Writer::WriteExact(const Expression& e)
{
    const bool column = e.kind == ExpressionKind::Column;
    Text(column ? "clb_exact(" : "");
    Write(e);
    Text(column ? ")" : "");
}

void Writer::WriteNegated(const Expression& e)
{
    if (e.type == FieldType::Money)
        Text("clb_negate(");
    else
        Text(e.type == FieldType::Long ? "clb_long(-" : "(-");
    WriteAs(*e.operands[0], e.type);
    Text(")");
}

void Writer::WriteAs(const Expression& e, FieldType type)
{
    const bool real = type == FieldType::Double || type == FieldType::Single;
    if (e.kind == ExpressionKind::Literal) {
        WriteLiteral(e, {type, 0, false});
    } else if (e.kind == ExpressionKind::Truth) {
        WriteTruth(e, type);
    } else if (e.kind == ExpressionKind::NullValue || e.type == type) {
        Write(e);
    } else if (type == FieldType::Money && e.type == FieldType::Double && IsExactConstant(e)) {
        WriteConstantAsMoney(e);
    } else if (e.type == FieldType::Boolean && (type == FieldType::Long || real)) {
        Text("(-");
        Write(e);
        Text(")");
    } else if (e.type == FieldType::Long && type == FieldType::Money) {
        Text("(");
        WriteExact(e);
        Text(" * 10000)");
    } else if (e.type == FieldType::Money && real) {
        Text("(");
        WriteExact(e);
        Text(" / 10000.0)");
    } else if (IsNumber(e.type) && e.type != FieldType::Boolean && real) {
        Write(e);  // whole and single numbers meet double ones by value
    } else {
        WriteConversion(e, {type, 0, false}, {});
    }
}

void Writer::WriteConstantAsMoney(const Expression& e)
{
    if (e.kind == ExpressionKind::Negate) {
        Text("clb_negate(");
        WriteAs(*e.operands[0], FieldType::Money);
        Text(")");
        return;
    }
    WriteFunction(e.operation == Operator::Add ? "clb_add" : "clb_subtract", *e.operands[0],
                  FieldType::Money, *e.operands[1], FieldType::Money);
}

void Writer::WriteForColumn(const Expression& e, const ColumnInfo& column)
{
    if (e.kind == ExpressionKind::Literal)
        WriteLiteral(e, column.type, column.name);
    else if (e.kind == ExpressionKind::Truth)
        WriteTruth(e, column.type.type);
    else if (IsNullLiteral(e) || (e.type == column.type.type && column.type.width == 0))
        Write(e);
    else
        WriteConversion(e, column.type, column.name);
}

void Writer::WriteConversion(const Expression& e, const ColumnType& type, std::string_view column)
{
    Text("clb_convert(");
    Write(e);
    Text(", " + std::to_string(static_cast<int>(e.type)) + ", " +
         std::to_string(static_cast<int>(type.type)) + ", " + std::to_string(type.width) + ", " +
         QuoteText(column) + ")");
}

void Writer::WriteLiteral(const Expression& e, const ColumnType& type, std::string_view column)
{
    Parameter parameter;
    parameter.literal = e.literal;
    parameter.negated = e.negated;
    parameter.type = type;
    parameter.column = column;
    parameters_.push_back(std::move(parameter));
    Text("?" + std::to_string(parameters_.size()));
}

void Writer::WriteTruth(const Expression& e, FieldType type)
{
    switch (type) {
        // Spelled out, since a bare 1 would be a position in ORDER BY.
        case FieldType::Boolean: Text(e.truth ? "TRUE" : "FALSE"); break;
        case FieldType::Money: Text(e.truth ? "(-10000)" : "(0)"); break;
        case FieldType::Text: Text(e.truth ? "'True'" : "'False'"); break;
        case FieldType::Date: throw refuse::TypeMismatch();
        default: Text(e.truth ? "(-1)" : "(0)"); break;
    }
}

void Writer::WriteCondition(const Expression& e)
{
    if (e.type == FieldType::Boolean) {
        Write(e);
        return;
    }
    Text("(");
    WriteAs(e, e.type);
    Text(" <> 0)");
}

void Writer::WriteOrder(const Expression& e, bool descending)
{
    const std::string_view direction = descending ? " DESC" : "";
    if (e.type == FieldType::Text) {
        Write(e);
        Text(" COLLATE clb_alpha").Text(direction).Text(", ");
    }
    Write(e);
    // A boolean yes is -1 to the dialect, so it stands before no.
    const bool mirrored = e.type == FieldType::Boolean;
    Text(mirrored ? (descending ? "" : " DESC") : direction);
}

void Writer::WriteBinary(const Expression& e)
{
    const Expression& left = *e.operands[0];
    const Expression& right = *e.operands[1];
    switch (e.operation) {
        case Operator::Add:
        case Operator::Subtract:
        case Operator::Multiply:
        case Operator::Divide: WriteArithmetic(e); break;
        case Operator::Concatenate:
            Text("(coalesce(");
            WriteAs(left, FieldType::Text);
            Text(", '') || coalesce(");
            WriteAs(right, FieldType::Text);
            Text(", ''))");
            break;
        case Operator::And:
        case Operator::Or:
            Text("(");
            WriteCondition(left);
            Text(Symbol(e.operation));
            WriteCondition(right);
            Text(")");
            break;
        default: WriteComparison(e.operation, left, right); break;
    }
}

void Writer::WriteArithmetic(const Expression& e)
{
    const Expression& left = *e.operands[0];
    const Expression& right = *e.operands[1];
    if (e.operation == Operator::Divide) {
        WriteFunction("clb_divide", left, FieldType::Double, right, FieldType::Double);
    } else if (e.type == FieldType::Money && e.operation == Operator::Multiply) {
        WriteMoneyProduct(left, right);
    } else if (e.type == FieldType::Money) {
        WriteFunction(e.operation == Operator::Add ? "clb_add" : "clb_subtract", left,
                      FieldType::Money, right, FieldType::Money);
    } else {
        Text(e.type == FieldType::Long ? "clb_long(" : "(");
        WriteOperand(left, e.type);
        Text(e.type == FieldType::Text ? " || " : Symbol(e.operation));
        WriteOperand(right, e.type);
        Text(")");
    }
}

void Writer::WriteOperand(const Expression& e, FieldType type)
{
    if (type == FieldType::Long && e.type == FieldType::Long)
        WriteExact(e);
    else
        WriteAs(e, type);
}

void Writer::WriteMoneyProduct(const Expression& a, const Expression& b)
{
    const auto amount = [](const Expression& e) {
        return e.type == FieldType::Money || (e.type == FieldType::Double && IsExactConstant(e));
    };
    if (amount(a) && amount(b))
        return WriteFunction("clb_multiply", a, FieldType::Money, b, FieldType::Money);
    const Expression& money = a.type == FieldType::Money ? a : b;
    const Expression& number = &money == &a ? b : a;
    const bool whole = number.type == FieldType::Long || number.type == FieldType::Boolean;
    WriteFunction("clb_times", money, FieldType::Money, number,
                  whole ? FieldType::Long : FieldType::Double);
}

void Writer::WriteFunction(std::string_view name, const Expression& a, FieldType typeA,
                           const Expression& b, FieldType typeB)
{
    Text(name).Text("(");
    WriteAs(a, typeA);
    Text(", ");
    WriteAs(b, typeB);
    Text(")");
}

void Writer::WriteComparison(Operator operation, const Expression& a, const Expression& b)
{
    if (IsFineBeside(b, a))
        return WriteFineComparison(operation, a, b);
    if (IsFineBeside(a, b))
        return WriteFineComparison(Mirrored(operation), b, a);
    const FieldType type = CommonType(a, b);
    Text("(");
    WriteAs(a, type);
    Text(Symbol(operation));
    WriteAs(b, type);
    Text(")");
}

/// No amount equals a literal finer than its decimals; an amount is below it exactly when it is not
/// above the next smaller amount.
void Writer::WriteFineComparison(Operator operation, const Expression& money,
                                 const Expression& literal)
{
    const auto compare = [&](std::string_view symbol) {
        WriteAs(money, FieldType::Money);
        Text(symbol);
        WriteLiteral(literal, {FieldType::Money, 0, false});
        parameters_.back().cutToMoney = true;
    };
    Text("(");
    switch (operation) {
        case Operator::Equal:
        case Operator::NotEqual:
            compare(operation == Operator::Equal ? " < " : " <= ");
            Text(operation == Operator::Equal ? " AND " : " OR ");
            compare(" > ");
            break;
        case Operator::Less:
        case Operator::LessEqual: compare(" <= "); break;
        default: compare(" > "); break;
    }
    Text(")");
}

void Writer::WriteIn(const Expression& e)
{
    const Expression& value = *e.operands[0];
    if (const auto type = OneTypeOf(e)) {
        Text("(");
        WriteAs(value, *type);
        for (std::size_t i = 1; i < e.operands.size(); ++i) {
            Text(i > 1 ? ", " : e.negated ? " NOT IN (" : " IN (");
            WriteAs(*e.operands[i], *type);
        }
        Text("))");
        return;
    }
    Text(e.negated ? "(NOT (" : "((");
    for (std::size_t i = 1; i < e.operands.size(); ++i) {
        if (i > 1)
            Text(" OR ");
        WriteComparison(Operator::Equal, value, *e.operands[i]);
    }
    Text("))");
}

void Writer::WriteBetween(const Expression& e)
{
    Text(e.negated ? "(NOT (" : "((");
    WriteComparison(Operator::GreaterEqual, *e.operands[0], *e.operands[1]);
    Text(" AND ");
    WriteComparison(Operator::LessEqual, *e.operands[0], *e.operands[2]);
    Text("))");
}

void Writer::WriteLike(const Expression& e)
{
    Text("(");
    WriteAs(*e.operands[0], FieldType::Text);
    Text(e.negated ? " NOT LIKE " : " LIKE ");
    WriteAs(*e.operands[1], FieldType::Text);
    Text(")");
}

}  // namespace clb
