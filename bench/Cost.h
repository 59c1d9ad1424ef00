// Measures time and memory of a piece of work or of a whole process.
#pragma once
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace clb {

/// What a piece of work cost.
struct Cost {
    double wall = 0;             ///< seconds of elapsed time
    double processor = 0;        ///< seconds of processor time, user and system
    std::int64_t peakBytes = 0;  ///< largest resident memory; 0 if it was not measured

    /// Adds the times of another piece of work; the peak stays.
    Cost& operator+=(const Cost& more);
};

/// Runs a program to its end, discards its standard output, and returns the cost of the whole
/// process. Throws std::runtime_error if it cannot be run or its exit code is not 0. The peak
/// cannot be smaller than what this process itself holds at that moment.
Cost RunProgram(const std::vector<std::string>& command);

/// Measures this process from the stopwatch's construction on.
class Stopwatch {
public:
    Stopwatch();
    [[nodiscard]] Cost Elapsed() const;

private:
    std::chrono::steady_clock::time_point wall_;
    double processor_;
};

}  // namespace clb
