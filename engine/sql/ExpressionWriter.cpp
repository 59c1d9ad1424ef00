#include "engine/sql/ExpressionWriter.h"

#include "engine/sql/CallWriter.h"
#include "engine/sql/ComparisonWriter.h"
#include "engine/sql/Typing.h"
#include "engine/storage/Refusals.h"

namespace clb {

namespace {

std::string_view SymbolOf(Operator operation)
{
    switch (operation) {
        case Operator::Add: return " + ";
        case Operator::Subtract: return " - ";
        case Operator::Multiply: return " * ";
        case Operator::And: return " AND ";
        case Operator::Or: return " OR ";
        default: return " ";
    }
}

bool IsReal(FieldType type)
{
    return type == FieldType::Double || type == FieldType::Single;
}

/// Whether the storage can use the value as one of the type. Whole numbers compare with binary
/// fractions by value.
bool NeedsNoConversion(const Expression& e, FieldType type)
{
    return e.kind == ExpressionKind::NullValue || e.type == type ||
           (IsReal(type) && (e.type == FieldType::Long || IsReal(e.type)));
}

}  // namespace

ExpressionWriter& ExpressionWriter::Text(std::string_view text)
{
    sql_.append(text);
    return *this;
}

ExpressionWriter& ExpressionWriter::Name(std::string_view name)
{
    return Text(QuoteName(name));
}

void ExpressionWriter::Write(const Expression& e)
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
        case ExpressionKind::In:
        case ExpressionKind::Between:
        case ExpressionKind::Like: ComparisonWriter(*this).Write(e); break;
        case ExpressionKind::Call: CallWriter(*this).Write(e); break;
    }
}

/// Calculations check their own results. Only the cell of a column may hold anything.
void ExpressionWriter::WriteExact(const Expression& e)
{
    const bool column = e.kind == ExpressionKind::Column;
    Text(column ? "clb_exact(" : "");
    Write(e);
    Text(column ? ")" : "");
}

void ExpressionWriter::WriteNegated(const Expression& e)
{
    if (e.type == FieldType::Money)
        Text("clb_negate(");
    else
        Text(e.type == FieldType::Long ? "clb_long(-" : "(-");
    WriteAs(*e.operands[0], e.type);
    Text(")");
}

void ExpressionWriter::WriteAs(const Expression& e, FieldType type)
{
    const bool real = IsReal(type);
    if (e.kind == ExpressionKind::Literal) {
        WriteLiteral(e, {type, 0, false});
    } else if (e.kind == ExpressionKind::Truth) {
        WriteTruth(e, type);
    } else if (NeedsNoConversion(e, type)) {
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
    } else {
        WriteConversion(e, {type, 0, false}, {});
    }
}

void ExpressionWriter::WriteConstantAsMoney(const Expression& e)
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

void ExpressionWriter::WriteForColumn(const Expression& e, const ColumnInfo& column)
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

void ExpressionWriter::WriteConversion(const Expression& e, const ColumnType& type,
                                       std::string_view column)
{
    Text("clb_convert(");
    Write(e);
    Text(", " + std::to_string(static_cast<int>(e.type)) + ", " +
         std::to_string(static_cast<int>(type.type)) + ", " + std::to_string(type.width) + ", " +
         QuoteText(column) + ")");
}

void ExpressionWriter::WriteLiteral(const Expression& e, const ColumnType& type,
                                    std::string_view column)
{
    Parameter parameter;
    parameter.literal = e.literal;
    parameter.negated = e.negated;
    parameter.type = type;
    parameter.column = column;
    parameters_.push_back(std::move(parameter));
    Text("?" + std::to_string(parameters_.size()));
}

void ExpressionWriter::WriteCutToMoney(const Expression& literal)
{
    WriteLiteral(literal, {FieldType::Money, 0, false});
    parameters_.back().cutToMoney = true;
}

void ExpressionWriter::WriteTruth(const Expression& e, FieldType type)
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

void ExpressionWriter::WriteCondition(const Expression& e)
{
    if (e.type == FieldType::Boolean) {
        Write(e);
        return;
    }
    Text("(");
    WriteAs(e, e.type);
    Text(" <> 0)");
}

void ExpressionWriter::WriteOrder(const Expression& e, bool descending)
{
    const std::string_view direction = descending ? " DESC" : "";
    if (e.type == FieldType::Text) {
        Write(e);
        Text(" COLLATE clb_alpha").Text(direction).Text(", ");
    }
    Write(e);
    // In the dialect True is -1, so it sorts before False.
    const bool mirrored = e.type == FieldType::Boolean;
    Text(mirrored ? (descending ? "" : " DESC") : direction);
}

void ExpressionWriter::WriteBinary(const Expression& e)
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
            Text(SymbolOf(e.operation));
            WriteCondition(right);
            Text(")");
            break;
        default: ComparisonWriter(*this).Write(e); break;
    }
}

void ExpressionWriter::WriteArithmetic(const Expression& e)
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
        Text(e.type == FieldType::Text ? " || " : SymbolOf(e.operation));
        WriteOperand(right, e.type);
        Text(")");
    }
}

void ExpressionWriter::WriteOperand(const Expression& e, FieldType type)
{
    if (type == FieldType::Long && e.type == FieldType::Long)
        WriteExact(e);
    else
        WriteAs(e, type);
}

void ExpressionWriter::WriteMoneyProduct(const Expression& a, const Expression& b)
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

void ExpressionWriter::WriteFunction(std::string_view name, const Expression& a, FieldType typeA,
                                     const Expression& b, FieldType typeB)
{
    Text(name).Text("(");
    WriteAs(a, typeA);
    Text(", ");
    WriteAs(b, typeB);
    Text(")");
}

}  // namespace clb
