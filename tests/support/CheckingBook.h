// The smallest book that tests use.
#pragma once
#include <string>
#include <vector>

namespace clb {

/// Statements that make the smallest book: the account "Checking" with one row, -12.50 for Food at
/// the Deli on 4 March 2006. Its balance is not stored yet. more: statements to run afterwards.
inline std::vector<std::string> CheckingBook(const std::vector<std::string>& more = {})
{
    std::vector<std::string> statements = {
        "INSERT INTO Account (AccountID, Description, Type) VALUES ('C-1', 'Checking', 'Bank')",
        "INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, CheckID, Category, "
        "PayeeName, Year, Period, FITID) VALUES (1, 'C-1', #2006-03-04#, 'Deli', -12.5, '', "
        "'Food', '', 2006, 3, 'a')"};
    statements.insert(statements.end(), more.begin(), more.end());
    return statements;
}

}  // namespace clb
