// The arguments of a call by name, read by the types of the operation's parameters.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "automation/Request.h"
#include "base/Value.h"
#include "json/ValueJson.h"

namespace clb {

/// Reads an argument as the type that the operation takes; at is its 0-based position. There is one
/// for each type that the program's operations take: text, whole number, Money (a text or a
/// number), bool, Value (any scalar) and Json (an object). Throws RequestError if the JSON does not
/// fit.
template <class Type>
Type ReadArgument(const Json& json, std::size_t at) = delete;
template <>
std::string ReadArgument<std::string>(const Json& json, std::size_t at);
template <>
std::int32_t ReadArgument<std::int32_t>(const Json& json, std::size_t at);
template <>
Money ReadArgument<Money>(const Json& json, std::size_t at);
template <>
bool ReadArgument<bool>(const Json& json, std::size_t at);
template <>
Value ReadArgument<Value>(const Json& json, std::size_t at);
template <>
Json ReadArgument<Json>(const Json& json, std::size_t at);

RequestError MissingArgument(std::size_t at);
RequestError TooManyArguments(std::size_t most);

/// How many of an operation's last arguments may be left out. They are then 0 or empty.
struct MayOmit {
    std::size_t last = 0;
};

/// The arguments of one call, kept as values, so that the operation can write back those that it
/// takes by reference.
template <class... Parameters>
class CallArguments {
public:
    /// Throws RequestError if there are too few or too many arguments, or one does not fit.
    CallArguments(const Json& given, MayOmit omit)
        : CallArguments(given, omit, std::index_sequence_for<Parameters...>())
    {
    }

    /// The operation gets a reference to each argument.
    template <class Function>
    decltype(auto) Apply(Function&& function)
    {
        return std::apply(std::forward<Function>(function), values_);
    }

    [[nodiscard]] Json ToJson() const
    {
        Json json = Json::array();
        std::apply([&json](const auto&... values) { (json.push_back(Written(values)), ...); },
                   values_);
        return json;
    }

private:
    template <class Parameter>
    using Stored = std::conditional_t<std::is_same_v<Parameter, std::string_view>, std::string,
                                      std::remove_cvref_t<Parameter>>;

    template <std::size_t... At>
    CallArguments(const Json& given, [[maybe_unused]] MayOmit omit, std::index_sequence<At...>)
        : values_{ReadOr<Stored<Parameters>>(given, At, At + omit.last >= sizeof...(At))...}
    {
        if (given.size() > sizeof...(At))
            throw TooManyArguments(sizeof...(At));
    }

    template <class Type>
    static Type ReadOr(const Json& given, std::size_t at, bool optional)
    {
        if (at < given.size())
            return ReadArgument<Type>(given[at], at);
        if (!optional)
            throw MissingArgument(at);
        return Type();
    }

    static const Json& Written(const Json& json) { return json; }
    template <class Type>
    static Json Written(const Type& value)
    {
        return clb::ToJson(Value(value));
    }

    std::tuple<Stored<Parameters>...> values_;
};

}  // namespace clb
