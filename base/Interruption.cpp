#include "base/Interruption.h"

#include <atomic>

namespace clb {
namespace {

std::atomic<int> asked = 0;
std::atomic<BreakOff> used = BreakOff::Anywhere;
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

void Interruption::Use(BreakOff where) noexcept
{
    used = where;
}

void Interruption::Check()
{
    if (Asked())
        throw Interrupted();
}

bool Interruption::BreaksQueries() noexcept
{
    return Asked() && used == BreakOff::Anywhere;
}

void Interruption::CheckAnywhere()
{
    if (BreaksQueries())
        throw Interrupted();
}

}  // namespace clb
