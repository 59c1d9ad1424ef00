#pragma once
#include <string>
#include <vector>

#include "bench/Figure.h"
#include "bench/Ledger.h"
#include "bench/WorkFolder.h"

namespace clb {

/// "register" and "rows", both in books of 1,000,000 transactions over 20 accounts and 20 years:
/// showing another month's register in the window, without painting, against the bare storage; and
/// the rows alone against the same rows in books of 10,000.
std::vector<Figure> MeasureRegister(const WorkFolder& work, int rounds);

/// Showing that many months of an account's register one after the other in a round, the late ones
/// of the ledger in turn, without painting; the reference reads the same rows and sums. Throws
/// std::runtime_error where they differ.
inline constexpr int kRegisterReloads = 60;
Rounds MeasureRegisterReloads(const std::string& folder, LedgerSize size, int rounds);

}  // namespace clb
