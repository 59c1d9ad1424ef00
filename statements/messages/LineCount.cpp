#include "statements/messages/LineCount.h"

namespace clb {

std::size_t LineCount::At(std::size_t offset)
{
    for (; at_ < offset && at_ < text_.size(); ++at_)
        if (text_[at_] == '\n' ||
            (text_[at_] == '\r' && (at_ + 1 == text_.size() || text_[at_ + 1] != '\n')))
            ++line_;
    return line_;
}

}  // namespace clb
