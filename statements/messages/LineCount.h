// Line numbers of places in a text.
#pragma once
#include <cstddef>
#include <string_view>

namespace clb {

/// Counts the line ends before places of a text that come in ascending order.
class LineCount {
public:
    explicit LineCount(std::string_view text) : text_(text) {}
    /// Number of the line, from 1, that this byte is in. Not before the byte of the last call.
    std::size_t At(std::size_t offset);

private:
    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
};

}  // namespace clb
