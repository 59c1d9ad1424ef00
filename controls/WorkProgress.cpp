#include "controls/WorkProgress.h"

#include <algorithm>

namespace clb {

WorkProgress::Work::Work(WorkProgress& progress) : progress_(progress)
{
    ++progress_.works_;
}

WorkProgress::Work::~Work()
{
    if (--progress_.works_ > 0 || !progress_.active_)
        return;
    progress_.active_ = false;
    progress_.text_.clear();
    progress_.permille_.reset();
    try {
        progress_.changed_.emit();
    } catch (...) {
        // There is no memory to draw the bar; the next work draws it.
    }
}

void WorkProgress::Step(std::size_t part, std::size_t whole, const std::string& text)
{
    if (works_ == 0)
        return;
    active_ = true;
    text_ = text;
    permille_.reset();
    if (whole > 0)
        permille_ = static_cast<std::int32_t>(1000.0 * static_cast<double>(std::min(part, whole)) /
                                              static_cast<double>(whole));
    changed_.emit();
}

}  // namespace clb
