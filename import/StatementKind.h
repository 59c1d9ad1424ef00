#pragma once
#include <cstdint>
#include <string>

namespace clb {

/// What modImport::DetectFileFormat will say of a file once an import has repaired its line ends:
/// 2 = OFX, QFX or OFC, 3 = QIF, 0 = none of these. The file stays as it is. Throws RuntimeError
/// when it cannot be read.
std::int32_t StatementKind(const std::string& path);

}  // namespace clb
