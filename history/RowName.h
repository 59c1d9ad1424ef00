// Names a row for the user.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/Value.h"

namespace clb {

/// Names and contents of a row's cells, or some of them.
using NamedValues = std::vector<std::pair<std::string, Value>>;

/// What a user calls the row: "the transaction of 2026-03-04 'Coffee'", "the account 'Checking'";
/// "row 12 of CvRule" for tables that the program shows nowhere and where the cells are missing.
/// shownDay gives a day in ISO form the form that the user reads; without it days stay ISO.
std::string RowName(const std::string& table, std::int64_t row, const NamedValues& cells,
                    const std::function<std::string(const std::string& day)>& shownDay = {});

}  // namespace clb
