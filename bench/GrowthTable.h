// A table of what the program's steps cost as the books grow.
#pragma once
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "bench/Cost.h"

namespace clb {

/// How much a step may cost in larger books.
enum class Growth {
    WithRows,  ///< it reads all rows: the same cost for each row
    None,      ///< it reads a month: the same cost in total
    Free       ///< for information only
};

/// One step at one size of the books.
struct GrowthCell {
    double ours = 0;
    std::optional<double> reference;
};

/// One step at every size, the smallest first.
struct GrowthLine {
    std::string title;
    std::string unit;
    Growth growth = Growth::Free;
    std::vector<GrowthCell> cells;
};

/// Prints the figures of the lines: ours, the reference's and their ratio for each size. Then
/// prints what the largest books cost compared with the smallest: for each row or, if the cost must
/// not grow, in total.
void PrintGrowth(std::ostream& out, const std::vector<std::int64_t>& sizes,
                 const std::vector<GrowthLine>& lines);

}  // namespace clb
