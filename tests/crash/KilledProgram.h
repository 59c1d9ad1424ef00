// Runs the driven program in a process that can be killed.
#pragma once
#include <chrono>
#include <string>
#include <vector>

#include "tests/crash/DrivenProgram.h"
#include "tests/support/LinePipes.h"

namespace clb {

/// The program "clb automate" in a process that can be killed at any moment. The clock is stopped
/// at kMoment.
class KilledProgram : public DrivenProgram {
public:
    using Clock = std::chrono::steady_clock;

    /// Starts the program without waiting for it.
    KilledProgram(const std::string& folder, const std::string& quoteService);
    Json FirstLine() override;
    Json Ask(const Json& request) override;
    /// Sends a request without waiting for the reply.
    void Send(const Json& request);
    /// Waits until the moment or until a reply. Returns true if a reply came.
    bool RepliesBefore(Clock::time_point moment);
    /// Waits for the file, a reply or the moment. Returns true if the file came first.
    bool CreatesBefore(const std::string& file, Clock::time_point moment);
    /// Kills the program and waits for its end. Returns the replies that it had written and that
    /// were not read yet.
    std::vector<Json> Kill();

private:
    LinePipes program_;
};

}  // namespace clb
