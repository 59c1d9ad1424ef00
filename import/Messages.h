// Messages of the import that other parts recognise.
#pragma once

namespace clb {

/// The first line of the message that lists the skipped lines of a QIF file, one on each line.
inline constexpr const char* kLinesSkipped =
    "Invalid data was found while importing. The following lines were skipped:";

}  // namespace clb
