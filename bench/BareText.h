// Reads files, numbers and amounts without the program.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace clb {

/// These functions read text without the program. They take plain ASCII and valid numbers only, and
/// throw std::runtime_error for anything else.

std::string ReadFile(const std::string& path);
/// Reads a whole number without a sign.
std::int64_t Digits(std::string_view text);
/// Reads an amount in 1/10000 units.
std::int64_t Amount(std::string_view text);

}  // namespace clb
