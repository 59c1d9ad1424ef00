// The repair of line ends on texts in memory.
#pragma once
#include <string>

namespace clb {

/// The bytes that a file has after modImport::FixLineEndings has repaired it.
[[nodiscard]] std::string WithRepairedLineEnds(std::string bytes);

}  // namespace clb
