// A child process that exchanges lines with a test.
#pragma once
#include <sys/types.h>

#include <string>
#include <vector>

namespace clb {

/// Runs a program as its own process, and exchanges lines with it over two pipes.
class LinePipes {
public:
    /// Starts a program with its arguments. Throws std::runtime_error if it cannot be started. A
    /// program that exits early does not end this process by SIGPIPE.
    explicit LinePipes(const std::vector<std::string>& words);
    /// Closes its input and waits for it to exit.
    ~LinePipes();
    LinePipes(const LinePipes&) = delete;
    LinePipes& operator=(const LinePipes&) = delete;

    /// Throws std::runtime_error if the program no longer reads.
    void Send(const std::string& line);
    /// Waits for the next line. Throws std::runtime_error if the program has closed its output.
    std::string Read();

    [[nodiscard]] bool HasLine() const { return received_.find('\n') != std::string::npos; }
    /// Receives the output that is available, without waiting. Returns false at the end of the
    /// output.
    bool Poll();

    /// Closes its input, receives the remaining output and waits for it to exit. Returns the exit
    /// code, or 128 plus the number of the signal that ended it.
    int End();
    /// Kills it, receives the remaining output and waits for it to exit.
    void Kill();
    /// Output that was received and not yet read.
    [[nodiscard]] const std::string& Rest() const { return received_; }

private:
    bool Receive();
    void WaitForEnd();

    pid_t process_ = -1;
    int down_ = -1;
    int up_ = -1;
    int exitCode_ = -1;
    std::string received_;
};

}  // namespace clb
