#pragma once
#include "bench/Figure.h"
#include "bench/WorkFolder.h"

#include <vector>

namespace clb {

/// "register" and "rows", both in books of 1,000,000 transactions over 20 accounts and 20 years:
/// showing another month's register in the window, without painting, against the bare storage; and
/// the rows alone against the same rows in books of 10,000.
std::vector<Figure> MeasureRegister(const WorkFolder& work, int rounds);

}  // namespace clb
