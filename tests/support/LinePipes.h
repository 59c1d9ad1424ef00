#pragma once
#include <sys/types.h>

#include <string>
#include <vector>

namespace clb {

/// A program as a process of its own: lines go down one pipe, lines come up another.
class LinePipes {
public:
    /// Starts a program with its arguments. Throws std::runtime_error when it cannot be started. A
    /// program that ends early does not end this process with it.
    explicit LinePipes(const std::vector<std::string>& words);
    /// Ends its input and waits for its end.
    ~LinePipes();
    LinePipes(const LinePipes&) = delete;
    LinePipes& operator=(const LinePipes&) = delete;

    /// Throws std::runtime_error when the program takes nothing any more.
    void Send(const std::string& line);
    /// Waits for the next line. Throws std::runtime_error when none comes any more.
    std::string Read();

    bool HasLine() const { return received_.find('\n') != std::string::npos; }
    /// Takes what has come meanwhile, without waiting; false at the end of what comes.
    bool Poll();

    /// Ends its input, takes what still comes and waits for its end: the exit code, or 128 and the
    /// number of the signal that ended it.
    int End();
    /// Kills it, takes what has come and waits for its end.
    void Kill();
    /// What came and was not read.
    const std::string& Rest() const { return received_; }

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
