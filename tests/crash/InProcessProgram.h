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

/// Runs the program in this process, on its own thread that waits between requests, so that the
/// file system below it can be exchanged.
class InProcessProgram : public DrivenProgram {
public:
    /// Loads the program folder; the clock is stopped at kMoment.
    InProcessProgram(const std::string& folder, const std::string& quoteService);
    /// Ends the input and waits until the program has ended.
    ~InProcessProgram() override;
    InProcessProgram(const InProcessProgram&) = delete;
    InProcessProgram& operator=(const InProcessProgram&) = delete;

    Json FirstLine() override { return firstLine_; }
    Json Ask(const Json& request) override;
    /// Ends the input and waits. Returns the message of an error that left the program, else an
    /// empty text.
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
