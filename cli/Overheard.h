#pragma once
#include <ostream>
#include <sstream>
#include <string>

namespace clb {

/// Keeps what is written to a stream, instead of letting it through, for as long as it lives.
class Overheard {
public:
    explicit Overheard(std::ostream& stream) : stream_(stream), before_(stream.rdbuf(text_.rdbuf()))
    {
    }
    ~Overheard() { stream_.rdbuf(before_); }
    Overheard(const Overheard&) = delete;
    Overheard& operator=(const Overheard&) = delete;

    std::string Text() const { return text_.str(); }

private:
    std::ostringstream text_;
    std::ostream& stream_;
    std::streambuf* before_;
};

}  // namespace clb
