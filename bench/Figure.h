#pragma once
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "bench/Cost.h"

namespace clb {

/// One line of the table: what of ours is compared with what, and how much more it may be.
struct Figure {
    std::string name;   ///< one word, for --only
    std::string title;  ///< what is compared
    std::string unit;   ///< of ours and reference
    double ours = 0;
    double reference = 0;
    double ratio = 0;                 ///< of processor times, or of sizes
    std::optional<double> wallRatio;  ///< for information only
    double limit = 0;

    [[nodiscard]] bool Over() const { return ratio > limit; }
};

/// Costs measured alternately: ours and the reference of one round belong together.
struct Rounds {
    std::vector<Cost> ours;
    std::vector<Cost> reference;
};

/// Fills a figure of times: medians of both sides divided by the number of things that each of them
/// did, in units of so many seconds; the ratio is the median of the rounds' own ratios.
struct TimeScale {
    double oursCount = 1;
    double referenceCount = 1;
    double unitSeconds = 1e-3;
};
void CompareTimes(Figure& figure, const Rounds& rounds, const TimeScale& scale);

/// 0 for no values.
double Median(std::vector<double> values);

void PrintTable(std::ostream& out, const std::vector<Figure>& figures);
void PrintJson(std::ostream& out, const std::vector<Figure>& figures);

}  // namespace clb
