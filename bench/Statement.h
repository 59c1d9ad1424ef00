// Makes large statement files for the benchmarks.
#pragma once
#include <cstdint>
#include <string>

namespace clb {

/// Writes an OFX 1.02 statement of one account. Lines end in carriage return and line feed. It has
/// ten years of transactions in order of date, each with its own identifier; one in ten is a
/// cheque, and some memos are longer than what the program keeps. The same count always gives the
/// same bytes. Throws std::runtime_error if the file cannot be written.
void WriteStatement(const std::string& path, std::int32_t transactions,
                    const std::string& account = "4417-0092-331");

/// Writes the same kind of transactions as a QIF file of one bank section, each with a category.
void WriteQif(const std::string& path, std::int32_t transactions);

}  // namespace clb
