#pragma once
#include "json/ValueJson.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace clb {

/// A request that cannot be carried out as it stands: no JSON object, an unknown verb or control, a
/// wrong argument. Nothing was changed.
class RequestError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One request: an object with the verb and its arguments by name. A missing argument or one of
/// another type throws RequestError.
class Request {
public:
    /// json must be an object and outlive the request.
    explicit Request(const Json& json) : json_(json) {}

    bool Has(const char* name) const { return json_.contains(name); }
    std::string Text(const char* name) const;
    std::int32_t Long(const char* name) const;
    bool Flag(const char* name) const;
    const Json& Array(const char* name) const;
    const Json& At(const char* name) const;

private:
    const Json& json_;
};

/// Whether it is a whole number within 32 bits.
bool IsLong(const Json& json);

}  // namespace clb
