// Makes large statement files of the kinds that banks deliver today.
#pragma once
#include <cstdint>
#include <string>

namespace clb {

enum class WideKind : std::uint8_t { OfxXml, Csv, Camt, Mt940 };

/// "ofx", "csv", "camt" or "mt940".
[[nodiscard]] const char* NameOf(WideKind kind);

/// Writes the transactions of WriteStatement as a file of this kind: XML of OFX 2.1; a table with
/// quoted cells, decimal commas and a running balance; camt.053 or MT940 with a statement for each
/// day. Throws std::runtime_error if the file cannot be written.
void WriteWide(WideKind kind, const std::string& path, std::int32_t transactions);

}  // namespace clb
