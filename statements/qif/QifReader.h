// The reader of Qif files.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "statements/form/StatementReader.h"

namespace clb {

/// Whether the text is a QIF file by its first lines.
[[nodiscard]] bool IsQifText(std::string_view text);
/// Reads QIF. The text is borrowed and outlives the reader. Throws NotAStatement.
[[nodiscard]] std::unique_ptr<IStatementReader> ReadQif(std::string_view text);

}  // namespace clb
