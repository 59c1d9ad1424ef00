// The reader of Ofx files.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "statements/form/StatementReader.h"

namespace clb {

/// Whether the text is one of these by its beginning: OFX, QFX or OFC, SGML or XML, with any header
/// or none.
[[nodiscard]] bool IsOfx(std::string_view text);
/// Reads OFX by its structure. The text is borrowed and outlives the reader. Throws NotAStatement.
[[nodiscard]] std::unique_ptr<IStatementReader> ReadOfx(std::string_view text);

}  // namespace clb
