#pragma once
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace clb {

/// What something took.
struct Cost {
    double wall = 0;             ///< seconds by the clock
    double processor = 0;        ///< seconds of the processor, user and system
    std::int64_t peakBytes = 0;  ///< largest resident memory; 0 where it was not measured

    /// Adds the times of another piece of work; the peak stays.
    Cost& operator+=(const Cost& more);
};

/// Runs a program to its end, its standard output thrown away, and reports what the whole process
/// took. Throws std::runtime_error when it cannot be run or its exit code is not 0. The peak cannot
/// be smaller than what this process holds itself at that moment.
Cost RunProgram(const std::vector<std::string>& command);

/// Measures this process from its making on.
class Stopwatch {
public:
    Stopwatch();
    [[nodiscard]] Cost Elapsed() const;

private:
    std::chrono::steady_clock::time_point wall_;
    double processor_;
};

}  // namespace clb
