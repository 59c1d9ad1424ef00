// Finds out how a file divides its fields.
#pragma once
#include <string_view>

#include "statements/csv/CsvRecords.h"
#include "statements/form/StatementReader.h"

namespace clb {

/// How well the names of a record fit a header row: the number of different roles that they name;
/// 0 without a date and an amount among them.
[[nodiscard]] std::size_t HeaderScore(const CsvRecord& record);

/// Finds the delimiter under which most records are rows with a date and an amount. A first line
/// "sep=;" settles it and is removed from the text. A delimiter that is given is taken.
[[nodiscard]] CsvDialect FindDialect(std::string_view& text, const StatementAnswers& answers);

}  // namespace clb
