// Captures what is written to a stream.
#pragma once
#include <ostream>
#include <sstream>
#include <string>

namespace clb {

/// Captures what is written to a stream, until it is destroyed. The stream itself receives nothing
/// meanwhile.
class CapturedStream {
public:
    explicit CapturedStream(std::ostream& stream)
        : stream_(stream), before_(stream.rdbuf(text_.rdbuf()))
    {
    }
    ~CapturedStream() { stream_.rdbuf(before_); }
    CapturedStream(const CapturedStream&) = delete;
    CapturedStream& operator=(const CapturedStream&) = delete;

    [[nodiscard]] std::string Text() const { return text_.str(); }

private:
    std::ostringstream text_;
    std::ostream& stream_;
    std::streambuf* before_;
};

}  // namespace clb
