#pragma once
#include <string>

namespace clb {

/// Makes sure that two database files hold the same accounts, transactions and budget lines, so
/// that equal work was compared. Throws std::runtime_error that names the table and the first row
/// that differs.
void RequireSameLedger(const std::string& ours, const std::string& reference);

}  // namespace clb
