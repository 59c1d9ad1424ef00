#include "engine/sql/CallWriter.h"

#include "engine/sql/ExpressionWriter.h"

namespace clb {
namespace {

std::string_view StorageName(Function function)
{
    switch (function) {
        case Function::Sum: return "sum";
        case Function::Count: return "count";
        case Function::Min: return "min";
        case Function::Max: return "max";
        case Function::Avg: return "avg";
        case Function::Len: return "length";
        case Function::UCase: return "upper";
        case Function::LCase: return "lower";
        case Function::Trim: return "trim";
        case Function::LTrim: return "ltrim";
        case Function::RTrim: return "rtrim";
        case Function::Left: return "clb_left";
        case Function::Right: return "clb_right";
        default: return "";
    }
}

/// Where the part of a date is in its ISO form.
std::string_view DatePart(Function function)
{
    switch (function) {
        case Function::Year: return ", 1, 4)";
        case Function::Month: return ", 6, 2)";
        default: return ", 9, 2)";
    }
}

/// What Nz gives for null if it has no second argument.
std::string_view EmptyValue(FieldType type)
{
    switch (type) {
        case FieldType::Text: return "''";
        case FieldType::Date: return "'1899-12-30'";
        default: return "0";
    }
}

}  // namespace

void CallWriter::Write(const Expression& e)
{
    if (IsAggregate(e.function))
        WriteAggregate(e);
    else
        WriteScalar(e);
}

void CallWriter::WriteAggregate(const Expression& e)
{
    if (e.operands.empty()) {
        out_.Text("count(*)");
        return;
    }
    const Expression& operand = *e.operands[0];
    const bool sums = e.function == Function::Sum || e.function == Function::Avg;
    const bool exact = operand.type == FieldType::Money || operand.type == FieldType::Long;
    const bool total = e.function == Function::Sum && exact;
    const bool whole = total && e.type == FieldType::Long;
    out_.Text(whole ? "clb_long(" : "(");
    out_.Text(total ? "clb_sum" : StorageName(e.function)).Text("(");
    if (sums && operand.type == FieldType::Boolean)
        out_.WriteAs(operand, FieldType::Long);
    else if (e.function == Function::Avg && exact)
        out_.WriteExact(operand);
    else
        out_.Write(operand);
    // Single numbers may be stored as whole ones, but their sum is a double.
    if (sums && operand.type == FieldType::Single)
        out_.Text(" * 1.0");
    out_.Text(")");
    if (e.function == Function::Avg && operand.type == FieldType::Money)
        out_.Text(" / 10000.0");
    out_.Text(")");
}

void CallWriter::WriteScalar(const Expression& e)
{
    const Expression& first = *e.operands[0];
    switch (e.function) {
        case Function::Year:
        case Function::Month:
        case Function::Day: WriteDatePart(e); break;
        case Function::Left:
        case Function::Right:
            out_.WriteFunction(StorageName(e.function), first, FieldType::Text, *e.operands[1],
                               FieldType::Long);
            break;
        case Function::Mid: WriteMid(e); break;
        case Function::Abs:
            out_.Text(e.type == FieldType::Long ? "clb_long(abs(" : "(abs(").WriteAs(first, e.type);
            out_.Text("))");
            break;
        case Function::Round: WriteRound(e); break;
        case Function::IIf: WriteIIf(e); break;
        case Function::IsNull:
            out_.Text("(").Write(first);
            out_.Text(" IS NULL)");
            break;
        case Function::Nz: WriteNz(e); break;
        case Function::CStr:
        case Function::CLng:
        case Function::CCur:
        case Function::CDbl: out_.WriteAs(first, e.type); break;
        default:
            out_.Text(StorageName(e.function)).Text("(").WriteAs(first, FieldType::Text);
            out_.Text(")");
            break;
    }
}

void CallWriter::WriteDatePart(const Expression& e)
{
    out_.Text("CAST(substr(").Write(*e.operands[0]);
    out_.Text(DatePart(e.function)).Text(" AS INTEGER)");
}

void CallWriter::WriteRound(const Expression& e)
{
    out_.Text("clb_round(").WriteAs(*e.operands[0], e.type);
    out_.Text(", ");
    if (e.operands.size() > 1)
        out_.WriteAs(*e.operands[1], FieldType::Long);
    else
        out_.Text("0");
    out_.Text(", " + std::to_string(static_cast<int>(e.type)) + ")");
}

void CallWriter::WriteIIf(const Expression& e)
{
    out_.Text("CASE WHEN ").WriteCondition(*e.operands[0]);
    out_.Text(" THEN ").WriteAs(*e.operands[1], e.type);
    out_.Text(" ELSE ").WriteAs(*e.operands[2], e.type);
    out_.Text(" END");
}

void CallWriter::WriteNz(const Expression& e)
{
    out_.Text("coalesce(").WriteAs(*e.operands[0], e.type);
    out_.Text(", ");
    if (e.operands.size() > 1)
        out_.WriteAs(*e.operands[1], e.type);
    else
        out_.Text(EmptyValue(e.type));
    out_.Text(")");
}

void CallWriter::WriteMid(const Expression& e)
{
    out_.Text("clb_mid(");
    out_.WriteAs(*e.operands[0], FieldType::Text);
    out_.Text(", ");
    out_.WriteAs(*e.operands[1], FieldType::Long);
    out_.Text(", ");
    if (e.operands.size() > 2)
        out_.WriteAs(*e.operands[2], FieldType::Long);
    else
        out_.Text("2147483647");
    out_.Text(")");
}

}  // namespace clb
