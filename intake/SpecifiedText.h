// Statements that the import of OFX files takes as they are.
#pragma once
#include <string>

#include "intake/KeptRows.h"
#include "statements/source/SourceFile.h"

namespace clb {

/// Whether the import may know a file with this beginning.
[[nodiscard]] bool MayBeSpecified(const SourceFile& file);

/// The file's text after the repair of its line ends, if the import of OFX files takes it whole and
/// right: one account, an identifier of its own on every row, and the same dates, amounts and texts
/// as the reader of this kind found. Otherwise empty.
[[nodiscard]] std::string SpecifiedText(const SourceFile& file, const std::string& kind,
                                        const KeptRows& rows);

}  // namespace clb
