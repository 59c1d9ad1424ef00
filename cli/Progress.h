#pragma once
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

namespace clb {

/// Tells on a stream how far a long piece of work is: nothing within the first pause, then at most
/// once a pause, and only what is new. Writes to the stream as it was in the beginning.
class Progress {
public:
    /// Throws RuntimeError (OutOfMemory) if the thread that tells it cannot be started.
    Progress(std::ostream& stream, std::size_t count,
             std::chrono::milliseconds pause = std::chrono::seconds(1));
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// The next of them is begun.
    void Next(const std::string& name);

private:
    void Tell();

    std::ostream out_;
    std::size_t count_;
    std::chrono::milliseconds pause_;
    std::mutex lock_;
    std::condition_variable ended_;
    bool end_ = false;
    std::size_t number_ = 0;
    std::string name_;
    std::size_t told_ = 0;
    std::thread teller_;
};

}  // namespace clb
