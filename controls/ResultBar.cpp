#include "controls/ResultBar.h"

#include <utility>

namespace clb {

void ResultBar::Show(std::string text, std::vector<Action> actions)
{
    text_ = std::move(text);
    actions_ = std::move(actions);
    NotifyChanged();
}

void ResultBar::Close()
{
    if (Shown())
        Show({}, {});
}

void ResultBar::Press(std::size_t button)
{
    if (button >= actions_.size())
        return;
    // The action may show another result or close the bar.
    const std::function<void()> run = actions_[button].run;
    run();
}

}  // namespace clb
