// One measured figure of the program, and its comparison with the reference.
#pragma once
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "bench/Cost.h"

namespace clb {

/// One line of the table: what is compared, and the largest ratio allowed.
struct Figure {
    std::string name;   ///< one word, for --only
    std::string title;  ///< what is compared
    std::string unit;   ///< unit of our value and of the reference
    double ours = 0;
    double reference = 0;
    double ratio = 0;                 ///< ratio of processor times, or of sizes
    std::optional<double> wallRatio;  ///< for information only
    double limit = 0;

    [[nodiscard]] bool Over() const { return ratio > limit; }
};

/// Costs measured alternately. Ours and the reference of one round belong together.
struct Rounds {
    std::vector<Cost> ours;
    std::vector<Cost> reference;
};

/// Fills in a figure of times: the medians of both sides, divided by the number of items that each
/// processed, in units of that many seconds. The ratio is the median of the rounds' ratios.
struct TimeScale {
    double oursCount = 1;
    double referenceCount = 1;
    double unitSeconds = 1e-3;
};
void CompareTimes(Figure& figure, const Rounds& rounds, const TimeScale& scale);

/// Returns 0 if there are no values.
double Median(std::vector<double> values);

void PrintTable(std::ostream& out, const std::vector<Figure>& figures);
void PrintJson(std::ostream& out, const std::vector<Figure>& figures);

}  // namespace clb
