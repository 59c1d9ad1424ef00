// Files that are no statements.
#pragma once
#include <string>
#include <string_view>

namespace clb {

/// Returns a sentence that says what a file is and what to do instead, if it is surely no
/// statement: a web page, a spreadsheet, a PDF, a picture and the like. Empty for other files.
[[nodiscard]] std::string DescribeForeignFile(std::string_view text);

}  // namespace clb
