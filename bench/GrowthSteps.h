// Measures the program's steps in books of one size.
#pragma once
#include <cstdint>
#include <vector>

#include "bench/GrowthTable.h"
#include "bench/Ledger.h"
#include "bench/WorkFolder.h"

namespace clb {

/// Measures statements: the import into fresh books, a second import, memory and file size, and the
/// export of one account. One statement has at most 250,000 transactions, for one account. The
/// cells are in the order of StatementLines(). Throws std::runtime_error if our books differ from
/// the reference's.
std::vector<GrowthLine> StatementLines();
std::vector<GrowthCell> MeasureStatements(const WorkFolder& work, std::int64_t transactions);

/// Measures books of the size: opens them, shows the net worth, a month's register and budget,
/// saves an edited row, and recomputes all balances. The cells are in the order of BooksLines().
std::vector<GrowthLine> BooksLines();
std::vector<GrowthCell> MeasureBooks(const WorkFolder& work, LedgerSize size, int rounds);

}  // namespace clb
