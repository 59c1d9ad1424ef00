// The result of an import in words and as JSON.
#pragma once
#include <string>

#include "cli/ImportReport.h"
#include "json/ValueJson.h"

namespace clb {

/// What in the file kept it from being imported as a whole, in lines.
[[nodiscard]] std::string ReasonInFile(const ImportedFile& file);
/// Why the file was refused, in lines: the above, or what the program printed.
[[nodiscard]] std::string ReasonOf(const ImportedFile& file);
/// What was left out, such as "line 3 left out: it is not booked yet: 2024-01-02 5 Shop".
[[nodiscard]] std::string LineOf(const LeftOutPart& part);
/// Whether it is a row that could not be read.
[[nodiscard]] bool IsUnreadable(const LeftOutPart& part);
/// "added", "known", or "read" of a row that is not imported.
[[nodiscard]] const char* StateOf(const ShownRow& shown);
/// The texts of a row in one.
[[nodiscard]] std::string TextOf(const StatementRow& row);
/// The object of one file. rows: with those that --show lists.
[[nodiscard]] Json ToJson(const ImportedFile& file, bool rows);
[[nodiscard]] Json ToJson(const std::vector<OtherFile>& others);

}  // namespace clb
