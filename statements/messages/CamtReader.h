// The reader of Camt files.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "statements/form/StatementReader.h"

namespace clb {

/// Whether the text is a camt.052, .053 or .054 message of any version by its root element.
[[nodiscard]] bool IsCamt(std::string_view text);
/// Reads camt. The text is borrowed and outlives the reader. Throws NotAStatement.
[[nodiscard]] std::unique_ptr<IStatementReader> ReadCamt(std::string_view text);

}  // namespace clb
