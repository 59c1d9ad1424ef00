#include "statements/messages/LineCount.h"

#include <algorithm>

namespace clb {

std::size_t LineCount::At(std::size_t offset)
{
    const std::size_t end = std::min(offset, text_.size());
    if (at_ >= end)
        return line_;
    const std::string_view passed = text_.substr(at_, end - at_);
    for (std::size_t feed = passed.find('\n'); feed != std::string_view::npos;
         feed = passed.find('\n', feed + 1))
        ++line_;
    // A carriage return ends a line unless a line feed follows.
    for (std::size_t at = passed.find('\r'); at != std::string_view::npos;
         at = passed.find('\r', at + 1))
        line_ += text_.substr(at_ + at + 1, 1) == "\n" ? 0U : 1U;
    at_ = end;
    return line_;
}

}  // namespace clb
