#include "app/Notices.h"

#include <algorithm>

namespace clb {

void Notices::Set(const std::string& kind, const std::string& text)
{
    const std::string before = Text();
    const auto place = std::find_if(notices_.begin(), notices_.end(),
                                    [&](const auto& notice) { return notice.first == kind; });
    if (place != notices_.end() && text.empty())
        notices_.erase(place);
    else if (place != notices_.end())
        place->second = text;
    else if (!text.empty())
        notices_.emplace_back(kind, text);
    if (Text() != before)
        changed_.emit();
}

std::string Notices::Text() const
{
    std::string all;
    for (const auto& [kind, text] : notices_)
        all += (all.empty() ? "" : "\n") + text;
    return all;
}

}  // namespace clb
