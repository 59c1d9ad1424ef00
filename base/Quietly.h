#pragma once

namespace clb {

/// Does the work as far as it goes; an exception ends it and is dropped. For putting things right
/// after an error that is reported already.
template <class Work>
void Quietly(const Work& work) noexcept
{
    try {
        work();
    } catch (...) {
        return;
    }
}

}  // namespace clb
