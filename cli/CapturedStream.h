#pragma once
#include <ostream>
#include <sstream>
#include <string>

namespace clb {

/// Keeps what is written to a stream, instead of letting it through, for as long as it lives.
class CapturedStream {
public:
    explicit CapturedStream(std::ostream& stream)
        : stream_(stream), before_(stream.rdbuf(text_.rdbuf()))
    {
    }
    ~CapturedStream() { stream_.rdbuf(before_); }
    CapturedStream(const CapturedStream&) = delete;
    CapturedStream& operator=(const CapturedStream&) = delete;

    std::string Text() const { return text_.str(); }

private:
    std::ostringstream text_;
    std::ostream& stream_;
    std::streambuf* before_;
};

}  // namespace clb
