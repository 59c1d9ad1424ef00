// The lines of a text file.
#pragma once
#include <cstddef>
#include <string_view>

namespace clb {

/// Goes through the lines of a text. They end with a line feed, a carriage return, or both.
class QifLines {
public:
    /// The text is borrowed.
    explicit QifLines(std::string_view text) : rest_(text) {}

    /// Reads the next line without its end. Returns false after the last.
    bool Next(std::string_view& line)
    {
        if (rest_.empty())
            return false;
        const std::size_t end = rest_.find_first_of("\r\n");
        whole_ = end != std::string_view::npos;
        line = rest_.substr(0, end);
        ++number_;
        rest_.remove_prefix(line.size());
        if (rest_.starts_with("\r\n"))
            rest_.remove_prefix(2);
        else if (whole_)
            rest_.remove_prefix(1);
        return true;
    }
    /// The number of the line read last, from 1.
    [[nodiscard]] std::size_t Number() const { return number_; }
    /// Whether the line read last has a line end.
    [[nodiscard]] bool IsWhole() const { return whole_; }

private:
    std::string_view rest_;
    std::size_t number_ = 0;
    bool whole_ = true;
};

}  // namespace clb
