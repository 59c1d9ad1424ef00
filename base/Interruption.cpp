#include "base/Interruption.h"

#include <atomic>

namespace clb {
namespace {

std::atomic<int> asked = 0;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler writes it");

}  // namespace

void Interruption::Ask(int signal) noexcept
{
    asked = signal;
}

int Interruption::Signal() noexcept
{
    return asked;
}

void Interruption::Forget() noexcept
{
    asked = 0;
}

}  // namespace clb
