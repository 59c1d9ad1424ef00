// The format of a statement file that is not imported yet.
#pragma once
#include <cstdint>
#include <string>

namespace clb {

/// Returns what modImport::DetectFileFormat would return after an import has repaired the file's
/// line ends: 2 = OFX, QFX or OFC, 3 = QIF, 0 = none of these. Does not change the file. Throws
/// RuntimeError if it cannot be read.
[[nodiscard]] std::int32_t StatementKind(const std::string& path);

}  // namespace clb
