#include "tests/support/RunOnLines.h"

#include <istream>
#include <ostream>
#include <streambuf>

namespace clb {
namespace {

constexpr std::size_t kLongestLine = 1 << 20;

/// Asks for the next line when the last one has been read.
class Input : public std::streambuf {
public:
    explicit Input(const GiveLine& give) : give_(give) { line_.reserve(kLongestLine); }

protected:
    int_type underflow() override
    {
        if (!give_(line_))
            return traits_type::eof();
        setg(line_.data(), line_.data(), line_.data() + line_.size());
        return traits_type::to_int_type(line_.front());
    }

private:
    const GiveLine& give_;
    std::string line_;
};

/// Passes a line on each time it is flushed.
class Output : public std::streambuf {
public:
    explicit Output(const TakeLine& take) : take_(take) { line_.reserve(kLongestLine); }

protected:
    int_type overflow(int_type letter) override
    {
        line_ += traits_type::to_char_type(letter);
        return letter;
    }
    std::streamsize xsputn(const char* bytes, std::streamsize count) override
    {
        line_.append(bytes, static_cast<std::size_t>(count));
        return count;
    }
    int sync() override
    {
        take_(line_);
        line_.clear();
        return 0;
    }

private:
    const TakeLine& take_;
    std::string line_;
};

}  // namespace

void RunOnLines(const AutomationOptions& options, const GiveLine& give, const TakeLine& take)
{
    Input input(give);
    Output output(take);
    std::istream requests(&input);
    std::ostream replies(&output);
    RunAutomation(requests, replies, options, nullptr);
}

}  // namespace clb
