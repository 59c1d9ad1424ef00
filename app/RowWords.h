// The words for the cells of stored rows.
#pragma once
#include <string>
#include <string_view>

#include "base/Value.h"
#include "ports/IDateForm.h"

namespace clb {

/// What the user calls a column of a table: "Check #" for Trans.CheckID; the column's own name if
/// no view shows it.
std::string FieldWord(std::string_view table, std::string_view column);

/// The contents of a cell as the views show them: amounts with two decimals, or more if they have
/// them.
std::string ShownCell(const Value& value, const IDateForm& dates);

}  // namespace clb
