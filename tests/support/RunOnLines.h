// Runs the driven program in the test's process.
#pragma once
#include <functional>
#include <string>

#include "automation/Automation.h"

namespace clb {

/// Writes the next request line, with its end of line, into the string. Returns false at the end of
/// the input.
using GiveLine = std::function<bool(std::string& line)>;
/// Receives one reply line.
using TakeLine = std::function<void(const std::string& line)>;

/// Runs the driven program in this process, without a window, until its input ends. Passing lines
/// allocates no memory, except for lines above 1 MiB. Throws any exception that leaves the program.
void RunOnLines(const AutomationOptions& options, const GiveLine& give, const TakeLine& take);

}  // namespace clb
