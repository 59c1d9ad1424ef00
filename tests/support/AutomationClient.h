#pragma once
#include <string>
#include <vector>

#include "json/ValueJson.h"
#include "tests/support/LinePipes.h"

namespace clb {

/// The driven program as a process of its own. Which program it is (with its first argument) the
/// environment variable CLB_AUTOMATE says, else it is "clb automate" of this build.
class AutomationClient {
public:
    /// Starts it with further arguments and reads its first line.
    explicit AutomationClient(const std::vector<std::string>& arguments);

    /// The line that came before any request.
    const Json& FirstLine() const { return firstLine_; }
    /// One request, one reply. Throws std::runtime_error when the program answers nothing.
    Json Ask(const Json& request);
    Json AskLine(const std::string& line);
    /// Ends the input, reads what still comes and waits for the end.
    int ExitCode() { return program_.End(); }
    /// Whole lines that came after the last reply; valid after ExitCode.
    const std::string& Rest() const { return program_.Rest(); }

private:
    LinePipes program_;
    Json firstLine_;
};

}  // namespace clb
