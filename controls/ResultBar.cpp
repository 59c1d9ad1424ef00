#include "controls/ResultBar.h"

#include <utility>

namespace clb {

void ResultBar::Show(std::string text, std::string caption, std::function<void()> reverse)
{
    text_ = std::move(text);
    caption_ = std::move(caption);
    reverse_ = std::move(reverse);
    NotifyChanged();
}

void ResultBar::Close()
{
    if (Shown())
        Show({}, {}, {});
}

void ResultBar::Press()
{
    // The reverse may show another result or close the bar.
    if (const std::function<void()> reverse = reverse_)
        reverse();
}

}  // namespace clb
