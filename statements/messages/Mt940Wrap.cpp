#include "statements/messages/Mt940Wrap.h"

#include <algorithm>

#include "base/Text.h"
#include "statements/messages/Mt940Fields.h"

namespace clb {
namespace {

constexpr std::size_t kWithTag = 61;  // characters of a first line of 65 that begins with ":86:"
constexpr std::size_t kNarrow = 64;
constexpr std::size_t kLong = 55;  // lines below it are not broken because they are full

/// The lines that are not blank.
std::vector<std::string_view> LinesOf(std::string_view content)
{
    std::vector<std::string_view> lines;
    LineCutter cut(content);
    for (std::string_view line; cut.Next(line);)
        if (line.find_first_not_of(' ') != std::string_view::npos)
            lines.push_back(line);
    return lines;
}

}  // namespace

void Mt940WrapCount::Add(std::string_view content)
{
    const std::vector<std::string_view> lines = LinesOf(content);
    for (std::size_t at = 0; at + 1 < lines.size(); ++at)
        ++(at == 0 ? first_ : next_)[std::min(Length(lines[at]), kWidest)];
}

Mt940Wrap Mt940WrapCount::Found() const
{
    Mt940Wrap wrap;
    std::size_t longOnes = 0;
    for (std::size_t length = kLong; length <= kWidest; ++length)
        longOnes += first_[length] + next_[length];
    const std::size_t narrow = first_[kNarrow] + next_[kNarrow];
    if (first_[kWidest] + next_[kWidest] == 0 && narrow > 1 && narrow * 2 >= longOnes)
        wrap = {kNarrow, kNarrow};
    const bool hasLonger =
        std::any_of(first_.begin() + kWithTag + 1, first_.end(), [](auto n) { return n > 0; });
    if (first_[kWithTag] > 0 && !hasLonger && next_[kWidest] > 0)
        wrap.first = kWithTag;
    return wrap;
}

std::vector<Mt940TextLine> Mt940TextLines(const std::vector<std::string_view>& contents,
                                          const Mt940Wrap& wrap)
{
    std::vector<Mt940TextLine> all;
    for (const std::string_view content : contents) {
        std::size_t width = wrap.first;
        for (const std::string_view line : LinesOf(content)) {
            all.push_back({line, line.size() >= width && Length(line) >= width});
            width = wrap.next;
        }
    }
    return all;
}

}  // namespace clb
