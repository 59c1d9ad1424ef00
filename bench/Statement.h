#pragma once
#include <cstdint>
#include <string>

namespace clb {

/// Writes an OFX 1.02 statement of one account: lines end in carriage return and line feed, ten
/// years of transactions in order of date, each with an identifier of its own, one in ten a cheque,
/// some memos longer than what the program keeps. The same count always gives the same bytes.
/// Throws std::runtime_error when the file cannot be written.
void WriteStatement(const std::string& path, std::int32_t transactions,
                    const std::string& account = "4417-0092-331");

/// Writes the same kind of transactions as a QIF file of one bank section, each with a category.
void WriteQif(const std::string& path, std::int32_t transactions);

}  // namespace clb
