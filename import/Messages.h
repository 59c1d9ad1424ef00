#pragma once

namespace clb {

/// Title of the import's message boxes: what the program calls itself.
inline constexpr const char* kMessageTitle = "Corvane Ledgerbook";

}  // namespace clb
