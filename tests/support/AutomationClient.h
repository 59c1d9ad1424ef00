// Drives a real program through its automation interface.
#pragma once
#include <string>
#include <vector>

#include "json/ValueJson.h"
#include "tests/support/LinePipes.h"

namespace clb {

/// Runs the driven program as its own process. The environment variable CLB_AUTOMATE names the
/// program and its first argument; the default is "clb automate" of this build.
class AutomationClient {
public:
    /// Starts it with further arguments and reads its first line.
    explicit AutomationClient(const std::vector<std::string>& arguments);

    /// The line that the program printed before the first request.
    [[nodiscard]] const Json& FirstLine() const { return firstLine_; }
    /// Sends one request and returns its reply. Throws std::runtime_error if the program does not
    /// answer.
    Json Ask(const Json& request);
    Json AskLine(const std::string& line);
    /// Closes the input, reads the remaining output and waits for the program to exit.
    int ExitCode() { return program_.End(); }
    /// Output after the last reply. Valid after ExitCode().
    [[nodiscard]] const std::string& Rest() const { return program_.Rest(); }

private:
    LinePipes program_;
    Json firstLine_;
};

}  // namespace clb
