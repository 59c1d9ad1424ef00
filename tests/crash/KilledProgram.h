// Runs the driven program in a process that can be killed.
#pragma once
#include <chrono>
#include <string>
#include <vector>

#include "tests/crash/DrivenProgram.h"
#include "tests/support/LinePipes.h"

namespace clb {

/// The program "clb automate" as a process that can be killed at any moment. The clock stands at
/// kMoment.
class KilledProgram : public DrivenProgram {
public:
    using Clock = std::chrono::steady_clock;

    /// Starts it and waits for nothing.
    KilledProgram(const std::string& folder, const std::string& quoteService);
    Json FirstLine() override;
    Json Ask(const Json& request) override;
    /// Sends a request and waits for nothing.
    void Send(const Json& request);
    /// Waits for the moment, or a reply; true when one came.
    bool RepliesBefore(Clock::time_point moment);
    /// Waits for the file, a reply or the moment; true when the file came first.
    bool CreatesBefore(const std::string& file, Clock::time_point moment);
    /// Kills it and waits for its end; the replies that came out and were not read yet.
    std::vector<Json> Kill();

private:
    LinePipes program_;
};

}  // namespace clb
