#include "engine/sql/Typing.h"
#include "engine/sql/Writer.h"

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

/// Where the date's part stands in its ISO form.
std::string_view DatePart(Function function)
{
    switch (function) {
        case Function::Year: return ", 1, 4)";
        case Function::Month: return ", 6, 2)";
        default: return ", 9, 2)";
    }
}

/// What stands for null where nothing else is said.
std::string_view EmptyValue(FieldType type)
{
    switch (type) {
        case FieldType::Text: return "''";
        case FieldType::Date: return "'1899-12-30'";
        default: return "0";
    }
}

}  // namespace

void Writer::WriteCall(const Expression& e)
{
    if (IsAggregate(e.function))
        WriteAggregate(e);
    else
        WriteScalar(e);
}

void Writer::WriteAggregate(const Expression& e)
{
    if (e.operands.empty()) {
        Text("count(*)");
        return;
    }
    const Expression& operand = *e.operands[0];
    const bool sums = e.function == Function::Sum || e.function == Function::Avg;
    const bool exact = operand.type == FieldType::Money || operand.type == FieldType::Long;
    const bool total = e.function == Function::Sum && exact;
    const bool whole = total && e.type == FieldType::Long;
    Text(whole ? "clb_long(" : "(");
    Text(total ? "clb_sum" : StorageName(e.function)).Text("(");
    if (sums && operand.type == FieldType::Boolean)
        WriteAs(operand, FieldType::Long);
    else if (e.function == Function::Avg && exact)
        WriteExact(operand);
    else
        Write(operand);
    // Single numbers may be stored as whole ones; their sum is a double all the same.
    if (sums && operand.type == FieldType::Single)
        Text(" * 1.0");
    Text(")");
    if (e.function == Function::Avg && operand.type == FieldType::Money)
        Text(" / 10000.0");
    Text(")");
}

void Writer::WriteScalar(const Expression& e)
{
    const Expression& first = *e.operands[0];
    switch (e.function) {
        case Function::Year:
        case Function::Month:
        case Function::Day: WriteDatePart(e); break;
        case Function::Left:
        case Function::Right:
            WriteFunction(StorageName(e.function), first, FieldType::Text, *e.operands[1],
                          FieldType::Long);
            break;
        case Function::Mid: WriteMid(e); break;
        case Function::Abs:
            Text(e.type == FieldType::Long ? "clb_long(abs(" : "(abs(").WriteAs(first, e.type);
            Text("))");
            break;
        case Function::Round: WriteRound(e); break;
        case Function::IIf: WriteIIf(e); break;
        case Function::IsNull:
            Text("(").Write(first);
            Text(" IS NULL)");
            break;
        case Function::Nz: WriteNz(e); break;
        case Function::CStr:
        case Function::CLng:
        case Function::CCur:
        case Function::CDbl: WriteAs(first, e.type); break;
        default:
            Text(StorageName(e.function)).Text("(").WriteAs(first, FieldType::Text);
            Text(")");
            break;
    }
}

void Writer::WriteDatePart(const Expression& e)
{
    Text("CAST(substr(").Write(*e.operands[0]);
    Text(DatePart(e.function)).Text(" AS INTEGER)");
}

void Writer::WriteRound(const Expression& e)
{
    Text("clb_round(").WriteAs(*e.operands[0], e.type);
    Text(", ");
    if (e.operands.size() > 1)
        WriteAs(*e.operands[1], FieldType::Long);
    else
        Text("0");
    Text(", " + std::to_string(static_cast<int>(e.type)) + ")");
}

void Writer::WriteIIf(const Expression& e)
{
    Text("CASE WHEN ").WriteCondition(*e.operands[0]);
    Text(" THEN ").WriteAs(*e.operands[1], e.type);
    Text(" ELSE ").WriteAs(*e.operands[2], e.type);
    Text(" END");
}

void Writer::WriteNz(const Expression& e)
{
    Text("coalesce(").WriteAs(*e.operands[0], e.type);
    Text(", ");
    if (e.operands.size() > 1)
        WriteAs(*e.operands[1], e.type);
    else
        Text(EmptyValue(e.type));
    Text(")");
}

void Writer::WriteMid(const Expression& e)
{
    Text("clb_mid(");
    WriteAs(*e.operands[0], FieldType::Text);
    Text(", ");
    WriteAs(*e.operands[1], FieldType::Long);
    Text(", ");
    if (e.operands.size() > 2)
        WriteAs(*e.operands[2], FieldType::Long);
    else
        Text("2147483647");
    Text(")");
}

}  // namespace clb
