#include "automation/CallArguments.h"

#include "automation/Request.h"
#include "base/RuntimeError.h"

namespace clb {
namespace {

RequestError Wrong(std::size_t at, const char* kind)
{
    return RequestError("Wrong argument: argument " + std::to_string(at + 1) + " must be " + kind);
}

Money ReadMoney(const Json& json, std::size_t at)
{
    if (json.is_number_integer() || json.is_string() || json.is_number_float()) {
        try {
            return ToMoney(FromJson(json));
        } catch (const RuntimeError&) {
            throw Wrong(at, "an amount of money");
        }
    }
    throw Wrong(at, "an amount of money");
}

Value ReadArgument(const Json& json, char kind, std::size_t at)
{
    switch (kind) {
        case 'o':
            if (!json.is_object())
                throw Wrong(at, "an object");
            return Null();
        case 't':
            if (!json.is_string())
                throw Wrong(at, "a text");
            break;
        case 'l':
            if (!IsLong(json))
                throw Wrong(at, "a whole number");
            break;
        case 'm': return ReadMoney(json, at);
        case 'b':
            if (!json.is_boolean())
                throw Wrong(at, "true or false");
            break;
        default:
            if (!IsScalar(json))
                throw Wrong(at, "a text, a number, true, false or null");
    }
    return FromJson(json);
}

Value Unset(char kind)
{
    switch (kind) {
        case 'l': return std::int32_t{0};
        case 'm': return Money();
        default: return std::string();
    }
}

}  // namespace

CallArguments::CallArguments(const Json& given, const char* kinds) : given_(given)
{
    bool optional = false;
    std::size_t at = 0;
    for (const char* kind = kinds; *kind; ++kind) {
        if (*kind == '|') {
            optional = true;
            continue;
        }
        if (at >= given.size() && !optional)
            throw RequestError("Missing argument " + std::to_string(at + 1));
        values_.push_back(at < given.size() ? ReadArgument(given[at], *kind, at) : Unset(*kind));
        ++at;
    }
    if (given.size() > at)
        throw RequestError("Too many arguments: there are " + std::to_string(at));
}

std::string& CallArguments::Text(std::size_t at)
{
    return std::get<std::string>(values_[at]);
}

std::int32_t& CallArguments::Long(std::size_t at)
{
    return std::get<std::int32_t>(values_[at]);
}

Money& CallArguments::Amount(std::size_t at)
{
    return std::get<Money>(values_[at]);
}

bool CallArguments::Flag(std::size_t at) const
{
    return std::get<bool>(values_[at]);
}

Json CallArguments::ToJson() const
{
    Json json = Json::array();
    for (std::size_t at = 0; at < values_.size(); ++at) {
        const bool object = at < given_.size() && given_[at].is_object();
        json.push_back(object ? given_[at] : clb::ToJson(values_[at]));
    }
    return json;
}

}  // namespace clb
