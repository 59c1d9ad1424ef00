// The reader of camt messages.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "statements/form/StatementReader.h"

namespace clb {

/// Whether the text is a message of ISO 20022 in XML, in any envelope: camt.052, .053 or .054 of
/// any version, or another one that ReadCamt refuses by its name.
[[nodiscard]] bool IsCamt(std::string_view text);
/// Reads camt.052, .053 and .054. The text is borrowed and outlives the reader. Throws
/// NotAStatement for another message, and one that breaks off before its first statement.
[[nodiscard]] std::unique_ptr<IStatementReader> ReadCamt(std::string_view text);

}  // namespace clb
