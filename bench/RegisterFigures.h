// Measures the register view.
#pragma once
#include <string>
#include <vector>

#include "bench/Figure.h"
#include "bench/Ledger.h"
#include "bench/WorkFolder.h"

namespace clb {

/// Measures "register" and "rows", both in books of 1,000,000 transactions over 20 accounts and 20
/// years. "register" shows another month's register in the window, without painting, and compares
/// with the bare storage. "rows" reads the rows alone and compares with the same rows in books of
/// 10,000.
std::vector<Figure> MeasureRegister(const WorkFolder& work, int rounds);

/// Registers shown in a round.
inline constexpr int kRegisterReloads = 60;
/// Shows kRegisterReloads months of an account's register one after the other in each round, taking
/// the ledger's late months in turn, without painting. The reference reads the same rows and sums.
/// Throws std::runtime_error if they differ.
Rounds MeasureRegisterReloads(const std::string& folder, LedgerSize size, int rounds);

}  // namespace clb
