#include "engine/storage/Convert.h"

#include "base/Text.h"
#include "engine/storage/Refusals.h"

namespace clb {
namespace {

bool HasType(const Value& value, FieldType type)
{
    switch (type) {
        case FieldType::Text: return std::holds_alternative<std::string>(value);
        case FieldType::Long: return std::holds_alternative<std::int32_t>(value);
        case FieldType::Money: return std::holds_alternative<Money>(value);
        case FieldType::Double: return std::holds_alternative<double>(value);
        case FieldType::Single: return std::holds_alternative<float>(value);
        case FieldType::Date: return std::holds_alternative<Date>(value);
        case FieldType::Boolean: return std::holds_alternative<bool>(value);
    }
    return false;
}

Value Converted(const Value& value, FieldType type)
{
    try {
        return Convert(value, type);
    } catch (const RuntimeError& error) {
        if (error.Number() == errors::Overflow)
            throw refuse::Overflow();
        throw EngineError(engine_errors::TypeMismatch,
                          "Data type mismatch: the value '" + ToText(value) +
                              "' cannot be stored as " + TypeName(type) + ".");
    }
}

}  // namespace

Value ConvertForColumn(Value value, const ColumnType& type, std::string_view column)
{
    if (IsNull(value))
        return value;
    if (!HasType(value, type.type))
        value = Converted(value, type.type);
    if (type.width != 0) {
        const auto& text = std::get<std::string>(value);
        if (text.size() > type.width && Length(text) > type.width)
            throw refuse::TextTooLong(column, type.width);
    }
    return value;
}

}  // namespace clb
