// The result of an import as JSON, for the automation and clb.
#pragma once
#include <string>

#include "intake/WideImport.h"
#include "json/ValueJson.h"

namespace clb {

/// The option of clb import that answers a question, such as "--date-order".
[[nodiscard]] const char* OptionOf(StatementQuestion question);
/// Why the statement was not imported, in lines; empty if it was.
[[nodiscard]] std::string ReasonOf(const ImportedStatement& statement);
/// The object of one statement: "file", "kind", "imported", "skipped", "refused", "leftOut",
/// "omitted", "accounts", "asked" and "notes".
[[nodiscard]] Json ToJson(const ImportedStatement& statement);

}  // namespace clb
