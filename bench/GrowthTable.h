#pragma once
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "bench/Cost.h"

namespace clb {

/// What a step may cost in larger books.
enum class Growth {
    WithRows,  ///< it reads all: as much for each row as before
    None,      ///< it reads a month: as much as before
    Free       ///< for information only
};

/// One step at one size of the books.
struct GrowthCell {
    double ours = 0;
    std::optional<double> reference;
};

/// One step at every size, from the smallest on.
struct GrowthLine {
    std::string title;
    std::string unit;
    Growth growth = Growth::Free;
    std::vector<GrowthCell> cells;
};

/// The lines' figures, ours and the reference's and their ratio for each size, and what the largest
/// books cost against the smallest: for each row, or as a whole where nothing may grow.
void PrintGrowth(std::ostream& out, const std::vector<std::int64_t>& sizes,
                 const std::vector<GrowthLine>& lines);

}  // namespace clb
