// Reads a month's budget without the program.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "base/Date.h"
#include "bench/Bare.h"

namespace clb {

/// The reference of a budget: one grouped statement, prepared once, that returns every line of a
/// month with what was spent on it. Groups and totals are added up from its rows.
class BareBudget {
public:
    /// Borrows the database.
    explicit BareBudget(BareDatabase& database);

    /// Amounts are in 1/10000 of a unit.
    struct Line {
        std::string group;
        std::string category;
        std::int64_t budgeted = 0;
        std::int64_t actual = 0;
    };
    /// Sorted by group and category.
    std::vector<Line> Read(Month month);

private:
    BareStatement lines_;
};

}  // namespace clb
