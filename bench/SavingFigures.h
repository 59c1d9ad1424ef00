#pragma once
#include <string>
#include <vector>

#include "bench/Figure.h"
#include "bench/Ledger.h"
#include "bench/WorkFolder.h"

namespace clb {

/// "saving" and "others": another amount in a row of a month of the purse, saved with all that
/// follows and made durable; against the bare storage in books of 1,000,000 transactions, and
/// beside 1,000,000 transactions of other accounts against beside 10,000.
std::vector<Figure> MeasureSaving(const WorkFolder& work, int rounds);

/// Saving that many edited rows of the purse in a round, each made durable; the reference changes
/// the copy. Throws std::runtime_error where the balances differ.
inline constexpr int kSavings = 100;
Rounds MeasureSavings(const std::string& folder, const std::string& copy, LedgerSize size,
                      int rounds);
/// The same books once more, for the reference to change; returns the folder.
std::string CopyBooks(const WorkFolder& work, const std::string& folder);

}  // namespace clb
