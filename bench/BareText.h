#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace clb {

/// Reading without the program: plain ASCII files of good numbers only. All throw
/// std::runtime_error.

std::string ReadFile(const std::string& path);
/// A whole number without a sign.
std::int64_t Digits(std::string_view text);
/// An amount in 1/10000 units.
std::int64_t Amount(std::string_view text);

}  // namespace clb
