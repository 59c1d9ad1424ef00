// Values of the data store as JSON.
#pragma once
#include <nlohmann/json.hpp>
#include <string>

#include "base/Value.h"

namespace clb {

/// JSON whose objects keep the order of their members, so that the same reply always reads the
/// same.
using Json = nlohmann::ordered_json;

/// Converts a value. Text, dates and money become strings (money a plain decimal); numbers, yes/no
/// and null become their JSON counterparts, but an infinite number the text "Infinity" or
/// "-Infinity".
[[nodiscard]] Json ToJson(const Value& value);
/// Converts a JSON scalar to a value. Strings become text; whole numbers that fit in 32 bits become
/// Long, other numbers Double. Not for arrays and objects.
[[nodiscard]] Value FromJson(const Json& json);
/// Whether the JSON is neither an array nor an object.
[[nodiscard]] bool IsScalar(const Json& json);

/// The JSON on one line, without the line end. Bytes that are not valid UTF-8 become U+FFFD.
[[nodiscard]] std::string ToLine(const Json& json);

}  // namespace clb
