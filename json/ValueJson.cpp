#include "json/ValueJson.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "base/Numeric.h"

namespace clb {
namespace {

/// A number, or a text for what JSON has no number for.
Json OfReal(double number)
{
    if (std::isinf(number))
        return number < 0 ? "-Infinity" : "Infinity";
    return number;
}

struct Writer {
    Json operator()(Null) const { return nullptr; }
    Json operator()(const std::string& text) const { return text; }
    Json operator()(std::int32_t number) const { return number; }
    Json operator()(Money money) const { return money.ToText(); }
    Json operator()(double number) const { return OfReal(number); }
    // Through its text, so that 0.1 in single precision stays 0.1 and not 0.10000000149011612.
    Json operator()(float number) const
    {
        return std::isfinite(number) ? Json(ParseDouble(ToText(number)))
                                     : OfReal(static_cast<double>(number));
    }
    Json operator()(const Date& date) const { return date.ToIso(); }
    Json operator()(bool yes) const { return yes; }
};

Value FromNumber(const Json& json)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (!json.is_number_integer())
        return json.get<double>();
    const bool tooLarge =
        json.is_number_unsigned()
            ? json.get<std::uint64_t>() > static_cast<std::uint64_t>(Limits::max())
            : json.get<std::int64_t>() < Limits::min() || json.get<std::int64_t>() > Limits::max();
    if (tooLarge)
        return json.get<double>();
    return json.get<std::int32_t>();
}

}  // namespace

Json ToJson(const Value& value)
{
    return std::visit(Writer(), value);
}

Value FromJson(const Json& json)
{
    if (json.is_null())
        return Null();
    if (json.is_boolean())
        return json.get<bool>();
    if (json.is_string())
        return json.get<std::string>();
    return FromNumber(json);
}

bool IsScalar(const Json& json)
{
    return !json.is_structured();
}

std::string ToLine(const Json& json)
{
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace clb
