// Measures the saving of an edited row.
#pragma once
#include <string>
#include <vector>

#include "bench/Figure.h"
#include "bench/Ledger.h"
#include "bench/WorkFolder.h"

namespace clb {

/// Measures "saving" and "others": changes an amount in a row of a month of the purse and makes it
/// durable with all its consequences. "saving" compares with the bare storage in books of 1,000,000
/// transactions. "others" compares these books with books of 10,000 transactions.
std::vector<Figure> MeasureSaving(const WorkFolder& work, int rounds);

/// Rows saved in a round.
inline constexpr int kSavings = 100;
/// Saves kSavings edited rows of the purse in each round, each made durable. The reference changes
/// the copy. Throws std::runtime_error if the balances differ.
Rounds MeasureSavings(const std::string& folder, const std::string& copy, LedgerSize size,
                      int rounds);
/// Copies the books, for the reference to change; returns the folder.
std::string CopyBooks(const WorkFolder& work, const std::string& folder);

}  // namespace clb
