// Numbers of lines.
#pragma once
#include <cstddef>
#include <string_view>

namespace clb {

/// Finds the line of an offset. Lines end with a line feed, a carriage return, or both. Fast for
/// offsets that rise; one before the last asked counts from the start again.
class TextLines {
public:
    /// The text is borrowed.
    explicit TextLines(std::string_view text) : text_(text) {}
    /// The line, from 1.
    std::size_t LineOf(std::size_t offset)
    {
        if (offset < at_) {
            at_ = 0;
            line_ = 1;
        }
        for (; at_ < offset && at_ < text_.size(); ++at_)
            if (text_[at_] == '\n' ||
                (text_[at_] == '\r' && (at_ + 1 == text_.size() || text_[at_ + 1] != '\n')))
                ++line_;
        return line_;
    }

private:
    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
};

}  // namespace clb
