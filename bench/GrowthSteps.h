#pragma once
#include <cstdint>
#include <vector>

#include "bench/GrowthTable.h"
#include "bench/Ledger.h"
#include "bench/WorkFolder.h"

namespace clb {

/// What statements cost: import into fresh books, import once more, memory and file size, and the
/// export of one account. One statement of at most 250,000 transactions an account. One cell for
/// each line, in the order of StatementLines(). Throws std::runtime_error where ours and the
/// reference's books differ.
std::vector<GrowthLine> StatementLines();
std::vector<GrowthCell> MeasureStatements(const WorkFolder& work, std::int64_t transactions);

/// What the program does in books of the size: open them, show the net worth, a month's register
/// and budget, save an edited row, store all balances anew. One cell for each line, in the order of
/// BooksLines().
std::vector<GrowthLine> BooksLines();
std::vector<GrowthCell> MeasureBooks(const WorkFolder& work, LedgerSize size, int rounds);

}  // namespace clb
