#include "app/Notices.h"

#include <algorithm>

namespace clb {

void Notices::Put(const Notice& notice)
{
    const std::string before = Text();
    const auto place = std::find_if(notices_.begin(), notices_.end(),
                                    [&](const Notice& other) { return other.kind == notice.kind; });
    if (place != notices_.end() && notice.text.empty())
        notices_.erase(place);
    else if (place != notices_.end())
        *place = notice;
    else if (!notice.text.empty())
        notices_.push_back(notice);
    if (Text() != before)
        changed_.emit();
}

bool Notices::Warns() const
{
    return std::any_of(notices_.begin(), notices_.end(),
                       [](const Notice& notice) { return notice.warns; });
}

std::string Notices::Text() const
{
    std::string all;
    for (const Notice& notice : notices_)
        all += (all.empty() ? "" : "\n") + notice.text;
    return all;
}

}  // namespace clb
