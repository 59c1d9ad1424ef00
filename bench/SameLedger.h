// Compares two database files, so that only equal work is measured.
#pragma once
#include <string>

namespace clb {

/// Checks that two database files hold the same accounts, transactions and budget lines, so that
/// both sides did the same work. Throws std::runtime_error that names the table and the first row
/// that differs.
void RequireSameLedger(const std::string& ours, const std::string& reference);

}  // namespace clb
