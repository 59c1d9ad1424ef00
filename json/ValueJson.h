#pragma once
#include "base/Value.h"

#include <nlohmann/json.hpp>
#include <string>

namespace clb {

/// JSON whose objects keep the order in which they were filled, so that replies read the same way
/// each time.
using Json = nlohmann::ordered_json;

/// Text, dates and money as strings (money plain decimal), numbers as numbers, yes/no as true and
/// false, null as null.
Json ToJson(const Value& value);
/// The value that a scalar stands for: strings are text, whole numbers within 32 bits are such,
/// other numbers double precision. Not for arrays and objects.
Value FromJson(const Json& json);
/// Whether it is no array and no object.
bool IsScalar(const Json& json);

/// One line of output without its end. Bytes that are no UTF-8 become U+FFFD.
std::string ToLine(const Json& json);

}  // namespace clb
