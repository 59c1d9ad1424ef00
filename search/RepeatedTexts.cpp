#include "search/RepeatedTexts.h"

#include <cstring>

#include "base/FoldedText.h"

namespace clb {

RepeatedTexts::Recent& RepeatedTexts::RecentOf(std::string_view text)
{
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15ULL;
    std::uint64_t ends[2] = {text.size(), 0};
    if (text.size() >= sizeof(ends[0])) {
        std::memcpy(&ends[0], text.data(), sizeof(ends[0]));
        std::memcpy(&ends[1], text.data() + text.size() - sizeof(ends[1]), sizeof(ends[1]));
    } else if (!text.empty()) {
        std::memcpy(&ends[1], text.data(), text.size());
    }
    const std::uint64_t place = (ends[0] * kSpread + ends[1]) * kSpread;
    return recent_[(place >> 32U) % recent_.size()];
}

std::uint32_t RepeatedTexts::NumberOf(std::string_view text, Named named)
{
    Recent& recent = RecentOf(text);
    if (recent.text != nullptr && *recent.text == text)
        return recent.number;
    auto known = numbers_.find(text);
    if (known == numbers_.end()) {
        names_.push_back(named == Named::Itself ? Folded(text) : std::string());
        const std::string& kept = texts_.emplace_back(text);
        known = numbers_.emplace(kept, static_cast<std::uint32_t>(texts_.size() - 1)).first;
    }
    recent = {&texts_[known->second], known->second};
    return known->second;
}

void RepeatedTexts::Name(std::string_view text, std::string_view name)
{
    names_[NumberOf(text, Named::No)] = Folded(name);
}

void RepeatedTexts::ClearNames()
{
    for (std::string& name : names_)
        name.clear();
}

std::vector<std::uint8_t> RepeatedTexts::With(std::string_view word) const
{
    std::vector<std::uint8_t> with(names_.size());
    bool any = false;
    for (std::size_t number = 0; number < names_.size(); ++number)
        if (names_[number].find(word) != std::string::npos) {
            with[number] = 1;
            any = true;
        }
    return any ? with : std::vector<std::uint8_t>();
}

}  // namespace clb
