#include "base/Value.h"

#include <cmath>
#include <limits>

#include "base/Numeric.h"
#include "base/Overloaded.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace clb {
namespace {

std::int32_t RoundToLong(double number)
{
    const double whole = std::nearbyint(number);
    if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
          whole <= std::numeric_limits<std::int32_t>::max()))
        throw Overflow();
    return static_cast<std::int32_t>(whole);
}

bool TextToBoolean(const std::string& text)
{
    const std::string upper = ToUpperAscii(text);
    if (upper == "TRUE" || upper == "YES")
        return true;
    if (upper == "FALSE" || upper == "NO")
        return false;
    return ParseDouble(text) != 0;
}

bool ToBoolean(const Value& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return TextToBoolean(*text);
    return ToDouble(value) != 0;
}

Date ToDate(const Value& value)
{
    if (const auto* date = std::get_if<Date>(&value))
        return *date;
    if (const auto* text = std::get_if<std::string>(&value))
        if (const auto date = Date::FromIso(*text))
            return *date;
    throw TypeMismatch();
}

float ToSingle(const Value& value)
{
    if (const auto* single = std::get_if<float>(&value))
        return *single;
    const double wide = ToDouble(value);
    const auto narrow = static_cast<float>(wide);
    if (std::isinf(narrow))
        throw Overflow();
    return narrow;
}

}  // namespace

const char* TypeName(FieldType type)
{
    switch (type) {
        case FieldType::Text: return "text";
        case FieldType::Long: return "long";
        case FieldType::Money: return "money";
        case FieldType::Double: return "double";
        case FieldType::Single: return "single";
        case FieldType::Date: return "date";
        case FieldType::Boolean: return "boolean";
    }
    return "text";
}

bool IsEmpty(const Value& value)
{
    const auto* text = std::get_if<std::string>(&value);
    return IsNull(value) || (text != nullptr && text->empty());
}

std::string ToText(const Value& value)
{
    return std::visit(Overloaded{
                          [](Null) { return std::string(); },
                          [](const std::string& text) { return text; },
                          [](std::int32_t number) { return std::to_string(number); },
                          [](Money money) { return money.ToText(); },
                          [](double number) { return ToText(number); },
                          [](float number) { return ToText(number); },
                          [](const Date& date) { return date.ToIso(); },
                          [](bool yes) { return std::string(yes ? "True" : "False"); },
                      },
                      value);
}

Money ToMoney(const Value& value)
{
    return std::visit(
        Overloaded{
            [](Null) { return Money(); },
            [](const std::string& text) { return Money::Parse(text); },
            [](std::int32_t number) { return Money::FromUnits(number); },
            [](Money money) { return money; },
            [](double number) { return Money::FromDouble(number); },
            [](float number) { return Money::FromDouble(static_cast<double>(number)); },
            [](const Date&) -> Money { throw TypeMismatch(); },
            [](bool yes) { return Money::FromUnits(yes ? -1 : 0); },
        },
        value);
}

std::int32_t ToLong(const Value& value)
{
    return std::visit(Overloaded{
                          [](Null) { return std::int32_t{0}; },
                          [](const std::string& text) { return ParseLong(text); },
                          [](std::int32_t number) { return number; },
                          [](Money money) { return RoundToLong(money.ToDouble()); },
                          [](double number) { return RoundToLong(number); },
                          [](float number) { return RoundToLong(static_cast<double>(number)); },
                          [](const Date&) -> std::int32_t { throw TypeMismatch(); },
                          [](bool yes) { return std::int32_t{yes ? -1 : 0}; },
                      },
                      value);
}

double ToDouble(const Value& value)
{
    return std::visit(Overloaded{
                          [](Null) { return 0.0; },
                          [](const std::string& text) { return ParseDouble(text); },
                          [](std::int32_t number) { return static_cast<double>(number); },
                          [](Money money) { return money.ToDouble(); },
                          [](double number) { return number; },
                          [](float number) { return static_cast<double>(number); },
                          [](const Date&) -> double { throw TypeMismatch(); },
                          [](bool yes) { return yes ? -1.0 : 0.0; },
                      },
                      value);
}

Value Convert(const Value& value, FieldType type)
{
    if (IsNull(value))
        return value;
    switch (type) {
        case FieldType::Text: return ToText(value);
        case FieldType::Long: return ToLong(value);
        case FieldType::Money: return ToMoney(value);
        case FieldType::Double: return ToDouble(value);
        case FieldType::Single: return ToSingle(value);
        case FieldType::Date: return ToDate(value);
        case FieldType::Boolean: return ToBoolean(value);
    }
    return value;
}

}  // namespace clb
