// Digests of bytes.
#pragma once
#include <string>
#include <string_view>

namespace clb {

/// The SHA-256 of the bytes as 64 hexadecimal digits in lower case. Throws RuntimeError if the
/// library fails.
[[nodiscard]] std::string Sha256(std::string_view bytes);

}  // namespace clb
