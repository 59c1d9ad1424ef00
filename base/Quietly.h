// Runs work whose errors do not matter.
#pragma once

namespace clb {

/// Does the work and drops an exception that ends it. For cleaning up after an error that is
/// reported already.
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
