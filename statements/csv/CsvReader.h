// The reader of Csv files.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "statements/form/StatementReader.h"

namespace clb {

/// Reads a table of text: delimiter, preamble, header row, columns and signs are found out. The
/// text is borrowed and outlives the reader. Throws NotAStatement if it is empty; the reader does
/// if it holds no table.
[[nodiscard]] std::unique_ptr<IStatementReader> ReadCsv(std::string_view text);

}  // namespace clb
