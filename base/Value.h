// A value of any column type.
#pragma once
#include <cstdint>
#include <string>
#include <variant>

#include "base/Date.h"
#include "base/Money.h"

namespace clb {

/// The column types of the database and the grid.
enum class FieldType { Text, Long, Money, Double, Single, Date, Boolean };

/// "text", "long", "money", "double", "single", "date" or "boolean".
const char* TypeName(FieldType type);

/// One field or cell. Null is a null field or a cell that was never set.

using Null = std::monostate;
using Value = std::variant<Null, std::string, std::int32_t, Money, double, float, Date, bool>;

inline bool IsNull(const Value& value)
{
    return std::holds_alternative<Null>(value);
}
/// Whether the value is null or the empty text.
bool IsEmpty(const Value& value);

/// Converts the value to text: null to "", numbers and money to plain decimals without grouping,
/// dates to ISO, booleans to "True" or "False".
std::string ToText(const Value& value);
/// Null gives 0. Texts are read as numbers. Throws TypeMismatch() or Overflow().
Money ToMoney(const Value& value);
/// Rounds half to even. Null and texts as above. Throws TypeMismatch() or Overflow().
std::int32_t ToLong(const Value& value);
/// Null and texts as above. Throws TypeMismatch() or Overflow().
double ToDouble(const Value& value);

/// Converts the value to the type of a column. Null stays null. Text becomes a date from its ISO
/// form, a boolean from "True", "Yes", "False", "No" or a number. Throws TypeMismatch() or
/// Overflow().
Value Convert(const Value& value, FieldType type);

}  // namespace clb
