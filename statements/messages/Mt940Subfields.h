// Field 86 of MT940 with subfields or codes in it.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "statements/messages/Mt940Text.h"

namespace clb {

/// The sign before each subfield, such as '?' in "166?00TRANSFER?20...". Nothing if the text has no
/// subfields.
[[nodiscard]] std::optional<char> SubfieldSign(std::string_view text);
[[nodiscard]] bool IsSubfield(std::string_view text, char sign);
[[nodiscard]] Mt940Description ReadSubfields(std::string_view text, char sign);

/// Whether the text consists of values after codes between slashes: "/EREF/123/REMI/...".
[[nodiscard]] bool HasCodes(std::string_view text);
[[nodiscard]] Mt940Description ReadCodes(std::string_view text);
/// Whether this is a code that stands between slashes.
[[nodiscard]] bool IsCode(std::string_view code);

}  // namespace clb
