// The result of an import as JSON.
#pragma once
#include <string>

#include "cli/ImportReport.h"
#include "json/ValueJson.h"

namespace clb {

/// Why the file was refused, in lines.
[[nodiscard]] std::string ReasonOf(const ImportedFile& file);
/// The texts of a row in one.
[[nodiscard]] std::string TextOf(const StatementRow& row);
/// The object of one file. rows: with those that --show lists.
[[nodiscard]] Json ToJson(const ImportedFile& file, bool rows);

}  // namespace clb
