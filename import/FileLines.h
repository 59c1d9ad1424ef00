// Lines and items of a text file.
#pragma once
#include <cstddef>
#include <string_view>

namespace clb {

/// Reads a text from start to end. A line ends at a carriage return and the line feed after it, if
/// there is one. A bare line feed is part of the line. The results refer to the text, which must
/// outlive them.
class FileLines {
public:
    explicit FileLines(std::string_view text) : text_(text) {}

    [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }
    /// Bytes read so far.
    [[nodiscard]] std::size_t At() const { return at_; }
    /// Returns the next line without its line end. Returns an empty line at the end of the text.
    std::string_view ReadLine();
    /// Returns the next item of a comma-separated list. It ends at the next comma or line end,
    /// which is consumed. Spaces before it are skipped. An item in double quotes ends at the second
    /// quote and may contain anything else.
    std::string_view ReadItem();

private:
    std::string_view ReadTo(std::size_t end);
    std::string_view ReadQuoted();
    void SkipLineEnd();

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace clb
