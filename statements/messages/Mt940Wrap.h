// How a file breaks long texts into lines.
#pragma once
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace clb {

/// Characters that fill a line of field 86. SWIFT's lines hold 65; some banks count the tag ":86:"
/// among those of the first line, some use 64.
struct Mt940Wrap {
    std::size_t first = 65;
    std::size_t next = 65;
};

/// A line of a text that is not blank.
struct Mt940TextLine {
    std::string_view text;
    bool isFull = false;  ///< the next one goes on without a space
};

/// Finds the width of a file's lines from all its texts.
class Mt940WrapCount {
public:
    /// Takes the content of a field 86.
    void Add(std::string_view content);
    [[nodiscard]] Mt940Wrap Found() const;

private:
    static constexpr std::size_t kWidest = 65;
    std::array<std::size_t, kWidest + 1> first_{};  ///< lines that go on, by their length
    std::array<std::size_t, kWidest + 1> next_{};
};

/// The lines of the contents of fields 86 that are not blank.
[[nodiscard]] std::vector<Mt940TextLine> Mt940TextLines(
    const std::vector<std::string_view>& contents, const Mt940Wrap& wrap);

}  // namespace clb
