#include "automation/Request.h"

namespace clb {
namespace {

RequestError Wrong(const char* name, const char* kind)
{
    return RequestError(std::string("Wrong argument: \"") + name + "\" must be " + kind);
}

}  // namespace

bool IsLong(const Json& json)
{
    return json.is_number_integer() && std::holds_alternative<std::int32_t>(FromJson(json));
}

const Json& Request::At(const char* name) const
{
    const auto found = json_.find(name);
    if (found == json_.end())
        throw RequestError(std::string("Missing argument: \"") + name + "\"");
    return *found;
}

std::string Request::Text(const char* name) const
{
    const Json& argument = At(name);
    if (!argument.is_string())
        throw Wrong(name, "a text");
    return argument.get<std::string>();
}

std::int32_t Request::Long(const char* name) const
{
    const Json& argument = At(name);
    if (!IsLong(argument))
        throw Wrong(name, "a whole number");
    return argument.get<std::int32_t>();
}

bool Request::Flag(const char* name) const
{
    const Json& argument = At(name);
    if (!argument.is_boolean())
        throw Wrong(name, "true or false");
    return argument.get<bool>();
}

const Json& Request::Array(const char* name) const
{
    const Json& argument = At(name);
    if (!argument.is_array())
        throw Wrong(name, "an array");
    return argument;
}

}  // namespace clb
