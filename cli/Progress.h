// Reports the progress of a long command.
#pragma once
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

namespace clb {

/// Writes to a stream how far a long command has got: nothing during the first pause, then at most
/// one line per pause, and only if there is progress. Writes to the buffer that the stream has when
/// the object is made.
class Progress {
public:
    /// Throws RuntimeError (OutOfMemory) if the thread that reports it cannot be started.
    Progress(std::ostream& stream, std::size_t count,
             std::chrono::milliseconds pause = std::chrono::seconds(1));
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Reports that work on the next item begins.
    void Next(const std::string& name);

private:
    void Report();

    std::ostream out_;
    std::size_t count_;
    std::chrono::milliseconds pause_;
    std::mutex lock_;
    std::condition_variable ended_;
    bool end_ = false;
    std::size_t number_ = 0;
    std::string name_;
    std::size_t reported_ = 0;
    std::thread reporter_;
};

}  // namespace clb
