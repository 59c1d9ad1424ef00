// Measures the search for transactions.
#pragma once
#include <vector>

#include "bench/Figure.h"
#include "bench/WorkFolder.h"

namespace clb {

/// Measures "find", "findfirst", "findkey" and "findkeysmall" in the ledgers of 1,000,000 and of
/// 100,000 transactions, whose texts are made longer and different first. "find" seeks words that
/// no search has sought before, and compares with the bare storage seeking them in the same rows.
/// "findfirst" reads everything for the first search, and compares with half a second. "findkey"
/// and "findkeysmall" type searches and compare the time that 95 percent of the key presses keep
/// with 50 and 16 ms.
std::vector<Figure> MeasureFind(const WorkFolder& work, int rounds);

}  // namespace clb
