#pragma once
#include <cstddef>
#include <string_view>

namespace clb {

/// Reads a text from front to back. A line ends at a carriage return, with the line feed that may
/// follow it; a bare line feed is part of the line. What is read refers to the text, which must
/// outlive it.
class FileLines {
public:
    explicit FileLines(std::string_view text) : text_(text) {}

    [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }
    /// Bytes read so far.
    [[nodiscard]] std::size_t At() const { return at_; }
    /// The next line without its end; empty at the end of the text.
    std::string_view ReadLine();
    /// The next comma-delimited item: up to the next comma or the line's end, which is consumed.
    /// Blanks in front of it are skipped. An item in double quotes goes up to the second of them,
    /// whatever stands between.
    std::string_view ReadItem();

private:
    std::string_view ReadTo(std::size_t end);
    std::string_view ReadQuoted();
    void SkipLineEnd();

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace clb
