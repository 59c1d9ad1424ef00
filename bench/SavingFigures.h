#pragma once
#include "bench/Figure.h"
#include "bench/WorkFolder.h"

#include <vector>

namespace clb {

/// "saving" and "others": another amount in a row of a month of the purse, saved with all that
/// follows and made durable; against the bare storage in books of 1,000,000 transactions, and
/// beside 1,000,000 transactions of other accounts against beside 10,000.
std::vector<Figure> MeasureSaving(const WorkFolder& work, int rounds);

}  // namespace clb
