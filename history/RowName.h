// Names a row for the user.
#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/Value.h"

namespace clb {

/// Names and contents of a row's cells, or some of them.
using NamedValues = std::vector<std::pair<std::string, Value>>;

/// What a user calls the row: "the transaction of 2026-03-04 'Coffee'", "the account 'Checking'";
/// "row 12 of CvRule" for tables that the program shows nowhere and where the cells are missing.
std::string RowName(const std::string& table, std::int64_t row, const NamedValues& cells);

}  // namespace clb
