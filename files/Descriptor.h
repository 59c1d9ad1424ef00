// A file descriptor that closes itself.
#pragma once
#include <unistd.h>

#include <utility>

namespace clb {

/// An open file descriptor. Closes it on destruction; -1 is none.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    /// Returns false if the system reports an error only now. errno is the reason.
    bool Close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

/// Calls fsync(). Succeeds on file systems that do not support it. errno is the reason of a
/// failure.
bool Sync(const Descriptor& file);

}  // namespace clb
