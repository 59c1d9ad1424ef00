// The book that the rounds of the stress test begin with, and statements for it.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/TempFolder.h"

namespace clb {

/// One transaction of a statement.
struct StressRow {
    std::string fitid;
    std::string date;  ///< yyyymmdd
    std::int64_t amount = 0;
};

/// The description that an imported row gets.
inline std::string DescriptionOf(const StressRow& row)
{
    return "Shop " + row.fitid;
}

/// An OFX file of these transactions.
std::string StatementText(const std::string& account, const std::vector<StressRow>& rows);

/// Numbers and names of the book's accounts.
struct StressAccount {
    const char* number;
    const char* name;
};
inline constexpr StressAccount kStressAccounts[] = {{"B-1", "Checking"}, {"B-2", "Savings"}};

/// Makes a program folder whose accounts have some hundred transactions in the first months of
/// 2006.
void MakeStressBook(const TempFolder& folder, const std::string& name);

}  // namespace clb
