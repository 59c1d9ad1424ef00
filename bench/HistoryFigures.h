// Measures what the history of a book costs.
#pragma once
#include <vector>

#include "bench/Figure.h"
#include "bench/WorkFolder.h"

namespace clb {

/// Measures "historyimport", "importbytes" and "undo": the import of 100,000 transactions with the
/// history and without it, the growth of the file by the history, and taking the import back.
std::vector<Figure> MeasureHistoryOfImport(const WorkFolder& work, int rounds);

/// Measures "historysaving" and "editbytes": a row of a month is edited and saved with the history
/// and without it, in books of 1,000,000 transactions.
std::vector<Figure> MeasureHistoryOfSaving(const WorkFolder& work, int rounds);

/// Measures "historylist": reading a history of 10,000 steps.
std::vector<Figure> MeasureHistoryList(const WorkFolder& work, int rounds);

}  // namespace clb
