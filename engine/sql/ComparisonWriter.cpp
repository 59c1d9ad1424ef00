#include "engine/sql/ComparisonWriter.h"

#include <optional>

#include "engine/sql/ExpressionWriter.h"
#include "engine/sql/Typing.h"

namespace clb {
namespace {

std::string_view SymbolOf(Operator operation)
{
    switch (operation) {
        case Operator::Equal: return " = ";
        case Operator::NotEqual: return " <> ";
        case Operator::Less: return " < ";
        case Operator::LessEqual: return " <= ";
        case Operator::Greater: return " > ";
        case Operator::GreaterEqual: return " >= ";
        default: return " ";
    }
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

bool IsFineBeside(const Expression& literal, const Expression& amount)
{
    return IsKind(literal, LiteralKind::Fine) && amount.type == FieldType::Money;
}

/// Returns the type in which IN compares all its values, or nothing if they need different types.
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

void ComparisonWriter::Write(const Expression& e)
{
    switch (e.kind) {
        case ExpressionKind::In: WriteIn(e); break;
        case ExpressionKind::Between: WriteBetween(e); break;
        case ExpressionKind::Like: WriteLike(e); break;
        default: WritePair(e.operation, *e.operands[0], *e.operands[1]); break;
    }
}

void ComparisonWriter::WritePair(Operator operation, const Expression& a, const Expression& b)
{
    if (IsFineBeside(b, a))
        return WriteFine(operation, a, b);
    if (IsFineBeside(a, b))
        return WriteFine(Mirrored(operation), b, a);
    const FieldType type = CommonType(a, b);
    out_.Text("(");
    out_.WriteAs(a, type);
    out_.Text(SymbolOf(operation));
    out_.WriteAs(b, type);
    out_.Text(")");
}

/// The literal has more decimals than an amount, so no amount equals it. An amount is less than the
/// literal exactly if it is not greater than the next smaller amount.
void ComparisonWriter::WriteFine(Operator operation, const Expression& money,
                                 const Expression& literal)
{
    const auto compare = [&](std::string_view symbol) {
        out_.WriteAs(money, FieldType::Money);
        out_.Text(symbol);
        out_.WriteCutToMoney(literal);
    };
    out_.Text("(");
    switch (operation) {
        case Operator::Equal:
        case Operator::NotEqual:
            compare(operation == Operator::Equal ? " < " : " <= ");
            out_.Text(operation == Operator::Equal ? " AND " : " OR ");
            compare(" > ");
            break;
        case Operator::Less:
        case Operator::LessEqual: compare(" <= "); break;
        default: compare(" > "); break;
    }
    out_.Text(")");
}

void ComparisonWriter::WriteIn(const Expression& e)
{
    const Expression& value = *e.operands[0];
    if (const auto type = OneTypeOf(e)) {
        out_.Text("(");
        out_.WriteAs(value, *type);
        for (std::size_t i = 1; i < e.operands.size(); ++i) {
            out_.Text(i > 1 ? ", " : e.negated ? " NOT IN (" : " IN (");
            out_.WriteAs(*e.operands[i], *type);
        }
        out_.Text("))");
        return;
    }
    out_.Text(e.negated ? "(NOT (" : "((");
    for (std::size_t i = 1; i < e.operands.size(); ++i) {
        if (i > 1)
            out_.Text(" OR ");
        WritePair(Operator::Equal, value, *e.operands[i]);
    }
    out_.Text("))");
}

void ComparisonWriter::WriteBetween(const Expression& e)
{
    out_.Text(e.negated ? "(NOT (" : "((");
    WritePair(Operator::GreaterEqual, *e.operands[0], *e.operands[1]);
    out_.Text(" AND ");
    WritePair(Operator::LessEqual, *e.operands[0], *e.operands[2]);
    out_.Text("))");
}

void ComparisonWriter::WriteLike(const Expression& e)
{
    out_.Text("(");
    out_.WriteAs(*e.operands[0], FieldType::Text);
    out_.Text(e.negated ? " NOT LIKE " : " LIKE ");
    out_.WriteAs(*e.operands[1], FieldType::Text);
    out_.Text(")");
}

}  // namespace clb
