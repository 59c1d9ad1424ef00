// A request of the driver.
#pragma once
#include <cstdint>
#include <stdexcept>
#include <string>

#include "json/ValueJson.h"

namespace clb {

/// The error of a request that is not valid: it is not a JSON object, names an unknown verb or
/// control, or has a wrong argument. Nothing was changed.
class RequestError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One request: an object with the verb and its arguments by name. The functions that read an
/// argument throw RequestError if it is missing or of another type.
class Request {
public:
    /// json: an object; borrowed, must outlive the request.
    explicit Request(const Json& json) : json_(json) {}

    [[nodiscard]] bool Has(const char* name) const { return json_.contains(name); }
    [[nodiscard]] std::string Text(const char* name) const;
    [[nodiscard]] std::int32_t Long(const char* name) const;
    [[nodiscard]] bool Flag(const char* name) const;
    [[nodiscard]] const Json& Array(const char* name) const;
    [[nodiscard]] const Json& At(const char* name) const;

private:
    const Json& json_;
};

/// Whether the JSON is a whole number that fits in 32 bits.
[[nodiscard]] bool IsLong(const Json& json);

}  // namespace clb
