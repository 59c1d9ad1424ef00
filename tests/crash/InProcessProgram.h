// Runs the driven program in the test's process.
#pragma once
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "tests/crash/DrivenProgram.h"

namespace clb {

/// The program in this process, on a thread of its own that waits between requests, so that what
/// lies below it can be exchanged.
class InProcessProgram : public DrivenProgram {
public:
    /// Loads the program folder; the clock stands at kMoment.
    InProcessProgram(const std::string& folder, const std::string& quoteService);
    /// Ends the input and waits for the end.
    ~InProcessProgram() override;
    InProcessProgram(const InProcessProgram&) = delete;
    InProcessProgram& operator=(const InProcessProgram&) = delete;

    Json FirstLine() override { return firstLine_; }
    Json Ask(const Json& request) override;
    /// Ends the input and waits; the message of an error that left the program, else empty.
    std::string End();

private:
    void Run(const std::string& folder, const std::string& quoteService);
    /// Waits for the next request. Returns false at the end of the input.
    bool Give(std::string& line);
    void Take(const std::string& line);
    Json Await();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::string> requests_;
    std::deque<std::string> replies_;
    bool inputEnded_ = false;
    bool programEnded_ = false;
    std::string escaped_;
    Json firstLine_;
    std::thread thread_;
};

}  // namespace clb
