#pragma once
#include <sys/types.h>

#include <string>
#include <vector>

#include "automation/ValueJson.h"

namespace clb {

/// The driven program as a process of its own: requests go down one pipe, replies come up another.
/// Which program it is (with its first argument) the environment variable CLB_AUTOMATE says, else
/// it is "clb automate" of this build.
class AutomationClient {
public:
    /// Starts it with further arguments and reads its first line.
    explicit AutomationClient(const std::vector<std::string>& arguments);
    /// Ends the input and waits.
    ~AutomationClient();
    AutomationClient(const AutomationClient&) = delete;
    AutomationClient& operator=(const AutomationClient&) = delete;

    /// The line that came before any request.
    const Json& FirstLine() const { return firstLine_; }
    /// One request, one reply. Throws std::runtime_error when the program answers nothing.
    Json Ask(const Json& request);
    Json AskLine(const std::string& line);
    /// Ends the input, reads what still comes and waits for the end.
    int ExitCode();
    /// Whole lines that came after the last reply; valid after ExitCode.
    const std::string& Rest() const { return received_; }

private:
    void Start(const std::vector<std::string>& words);
    Json ReadReply();
    bool Receive();

    pid_t process_ = -1;
    int requests_ = -1;
    int replies_ = -1;
    std::string received_;
    Json firstLine_;
    int exitCode_ = -1;
};

}  // namespace clb
