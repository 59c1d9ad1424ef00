// The reader for a statement file, chosen by what the file holds.
#pragma once
#include <memory>
#include <string_view>

#include "statements/form/StatementReader.h"

namespace clb {

/// Looks at a text in UTF-8 and returns the reader for it, never by a name. The text is borrowed
/// and outlives the reader. Throws NotAStatement that says what the file is, as far as that is
/// known (a PDF, a spreadsheet, a web page, ...).
[[nodiscard]] std::unique_ptr<IStatementReader> OpenStatement(std::string_view text);

/// Whether a file that begins with this text is surely a statement in one of the formats for it. A
/// table (CSV) may hold anything.
[[nodiscard]] bool BeginsAsStatement(std::string_view text);

}  // namespace clb
