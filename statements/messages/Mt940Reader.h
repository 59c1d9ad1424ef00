// The reader of MT940 and MT942 messages.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "statements/form/StatementReader.h"

namespace clb {

/// Whether the text holds MT940 or MT942 messages, with or without SWIFT's envelope.
[[nodiscard]] bool IsMt940(std::string_view text);
/// Reads MT940 and MT942. The text is borrowed and outlives the reader. Throws NotAStatement if it
/// has no account, balance or statement line.
[[nodiscard]] std::unique_ptr<IStatementReader> ReadMt940(std::string_view text);

}  // namespace clb
