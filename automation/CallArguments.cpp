#include "automation/CallArguments.h"

#include "base/RuntimeError.h"

namespace clb {
namespace {

RequestError Wrong(std::size_t at, const char* kind)
{
    return RequestError("Wrong argument: argument " + std::to_string(at + 1) + " must be " + kind);
}

}  // namespace

template <>
std::string ReadArgument<std::string>(const Json& json, std::size_t at)
{
    if (!json.is_string())
        throw Wrong(at, "a text");
    return json.get<std::string>();
}

template <>
std::int32_t ReadArgument<std::int32_t>(const Json& json, std::size_t at)
{
    if (!IsLong(json))
        throw Wrong(at, "a whole number");
    return json.get<std::int32_t>();
}

template <>
Money ReadArgument<Money>(const Json& json, std::size_t at)
{
    if (!json.is_number() && !json.is_string())
        throw Wrong(at, "an amount of money");
    try {
        return ToMoney(FromJson(json));
    } catch (const RuntimeError&) {
        throw Wrong(at, "an amount of money");
    }
}

template <>
bool ReadArgument<bool>(const Json& json, std::size_t at)
{
    if (!json.is_boolean())
        throw Wrong(at, "true or false");
    return json.get<bool>();
}

template <>
Value ReadArgument<Value>(const Json& json, std::size_t at)
{
    if (!IsScalar(json))
        throw Wrong(at, "a text, a number, true, false or null");
    return FromJson(json);
}

template <>
Json ReadArgument<Json>(const Json& json, std::size_t at)
{
    if (!json.is_object())
        throw Wrong(at, "an object");
    return json;
}

RequestError MissingArgument(std::size_t at)
{
    return RequestError("Missing argument " + std::to_string(at + 1));
}

RequestError TooManyArguments(std::size_t most)
{
    return RequestError("Too many arguments: there are " + std::to_string(most));
}

}  // namespace clb
