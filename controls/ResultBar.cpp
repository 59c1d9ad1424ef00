#include "controls/ResultBar.h"

#include <utility>

namespace clb {

void ResultBar::Show(std::string text, std::string caption, std::function<void()> action)
{
    text_ = std::move(text);
    caption_ = std::move(caption);
    action_ = std::move(action);
    NotifyChanged();
}

void ResultBar::Close()
{
    if (Shown())
        Show({}, {}, {});
}

void ResultBar::Press()
{
    // The action may show another result or close the bar.
    if (const std::function<void()> action = action_)
        action();
}

}  // namespace clb
