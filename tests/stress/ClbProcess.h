// Runs the program clb beside a test and keeps what it printed.
#pragma once
#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace clb {

/// One run of clb, in its own process.
class ClbProcess {
public:
    /// Starts clb and does not wait for it. Throws std::runtime_error if it cannot be started.
    explicit ClbProcess(const std::vector<std::string>& arguments);
    /// Waits for its end.
    ~ClbProcess();
    ClbProcess(const ClbProcess&) = delete;
    ClbProcess& operator=(const ClbProcess&) = delete;

    /// Waits for its end. Returns the exit code, or 128 plus the number of the signal that ended
    /// it.
    int Wait();
    /// What it printed; valid after Wait.
    [[nodiscard]] const std::string& Out() const { return out_; }
    [[nodiscard]] const std::string& Err() const { return err_; }
    /// Time from the start to the moment when Wait returned: at least as long as the run took.
    [[nodiscard]] std::chrono::duration<double> Took() const { return took_; }
    /// The arguments and all that it printed, for messages.
    [[nodiscard]] std::string Story() const;

private:
    std::string arguments_;
    pid_t process_ = -1;
    int outFile_ = -1;
    int errFile_ = -1;
    int exitCode_ = -1;
    std::string out_;
    std::string err_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::chrono::duration<double> took_{};
};

}  // namespace clb
