#include "history/CellValue.h"

#include <cmath>
#include <limits>
#include <optional>

namespace clb {
namespace {

std::optional<Value> OfInteger(std::int64_t number, FieldType type)
{
    using Limits = std::numeric_limits<std::int32_t>;
    switch (type) {
        case FieldType::Money: return Money::FromScaled(number);
        case FieldType::Boolean: return number != 0;
        case FieldType::Long:
            if (number < Limits::min() || number > Limits::max())
                return std::nullopt;
            return static_cast<std::int32_t>(number);
        case FieldType::Double: return static_cast<double>(number);
        case FieldType::Single: return static_cast<float>(number);
        default: return std::nullopt;
    }
}

bool FitsSingle(double real)
{
    return std::abs(real) <= static_cast<double>(std::numeric_limits<float>::max());
}

}  // namespace

Value ValueOf(const StoredCell& cell, FieldType type)
{
    if (std::holds_alternative<std::monostate>(cell))
        return Null();
    if (const auto* number = std::get_if<std::int64_t>(&cell))
        return OfInteger(*number, type).value_or(std::to_string(*number));
    if (const auto* real = std::get_if<double>(&cell)) {
        if (type == FieldType::Single && (std::isinf(*real) || FitsSingle(*real)))
            return static_cast<float>(*real);
        return type == FieldType::Double ? Value(*real) : Value(ToText(*real));
    }
    if (const auto* blob = std::get_if<Blob>(&cell))
        return std::to_string(blob->bytes.size()) + " raw bytes";
    const auto& text = std::get<std::string>(cell);
    if (type == FieldType::Date)
        if (const auto date = Date::FromIso(text))
            return *date;
    return text;
}

}  // namespace clb
