#include "export/TextSet.h"

#include <algorithm>
#include <functional>

namespace clb {

bool TextSet::Insert(std::string_view text)
{
    if (2 * (ends_.size() + 1) > table_.size())
        Grow();
    const std::size_t mask = table_.size() - 1;
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
    std::size_t at = hash & mask;
    for (; table_[at].number != 0; at = (at + 1) & mask)
        if (table_[at].hash == hash && Text(table_[at].number) == text)
            return false;
    texts_ += text;
    ends_.push_back(texts_.size());
    table_[at] = {hash, static_cast<std::uint32_t>(ends_.size())};
    return true;
}

std::string_view TextSet::Text(std::uint32_t number) const
{
    const std::size_t start = number > 1 ? ends_[number - 2] : 0;
    return std::string_view(texts_).substr(start, ends_[number - 1] - start);
}

void TextSet::Grow()
{
    constexpr std::size_t kSmallest = 64;
    std::vector<Entry> grown(std::max(kSmallest, 2 * table_.size()));
    const std::size_t mask = grown.size() - 1;
    for (const Entry& entry : table_) {
        if (entry.number == 0)
            continue;
        std::size_t at = entry.hash & mask;
        while (grown[at].number != 0)
            at = (at + 1) & mask;
        grown[at] = entry;
    }
    table_.swap(grown);
}

}  // namespace clb
