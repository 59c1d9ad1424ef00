#pragma once
#include "base/Value.h"
#include "json/ValueJson.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace clb {

/// The arguments of one call, checked against the kinds of the operation's definition and kept as
/// the values they stand for, so that an operation may write back those by reference.
///
/// Kinds, one letter each: t text, l whole number, m money (a text or a number), b yes/no, v any
/// scalar, o an object. Arguments behind "|" may be left out; they are then 0 or empty.
class CallArguments {
public:
    /// Throws RequestError when the arguments do not fit the kinds.
    CallArguments(const Json& given, const char* kinds);

    // Argument by 0-based position; its kind must be the one asked for.
    std::string& Text(std::size_t at);
    std::int32_t& Long(std::size_t at);
    Money& Amount(std::size_t at);
    bool Flag(std::size_t at) const;
    const Value& Any(std::size_t at) const { return values_[at]; }
    const Json& Object(std::size_t at) const { return given_[at]; }

    Json ToJson() const;

private:
    Json given_;
    std::vector<Value> values_;  // null for objects
};

}  // namespace clb
