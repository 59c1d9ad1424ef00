#pragma once

namespace clb {

/// How the message begins that lists the skipped lines of a QIF file; each follows on a line.
inline constexpr const char* kLinesSkipped =
    "Invalid data was found while importing. The following lines were skipped:";

}  // namespace clb
