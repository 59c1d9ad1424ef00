#include "tests/allocation/FailingAllocations.h"

#include <dlfcn.h>
#include <sqlite3.h>

#include <cstdlib>
#include <new>
#include <string_view>

namespace clb {
namespace {

struct Plan {
    bool counting = false;
    bool reached = false;
    Refusal refusal = Refusal::One;
    Counted counted = Counted::All;
    std::int64_t n = 0;
    std::int64_t count = 0;
};

thread_local Plan plan;

sqlite3_mem_methods storage;  // the storage's own allocator

void* Allocate(int bytes)
{
    return FailingAllocations::Refuses(Counted::Storage, nullptr) ? nullptr
                                                                  : storage.xMalloc(bytes);
}

void* Reallocate(void* block, int bytes)
{
    return FailingAllocations::Refuses(Counted::Storage, nullptr) ? nullptr
                                                                  : storage.xRealloc(block, bytes);
}

/// The library of the signals allocates memory for a connection in functions that may not throw. A
/// failure there would end the program, with the file as it was.
bool CannotReport(const void* caller)
{
    Dl_info place{};
    if (!caller || dladdr(caller, &place) == 0 || !place.dli_sname)
        return false;
    const std::string_view name = place.dli_sname;
    return name.find("sigc9trackable13callback_list") != std::string_view::npos ||
           name.find("sigc8internal23trackable_callback_list") != std::string_view::npos;
}

/// Runs before main, because the storage takes another allocator only before its first use.
bool ReplaceStorageAllocator()
{
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &storage);
    sqlite3_mem_methods counted = storage;
    counted.xMalloc = Allocate;
    counted.xRealloc = Reallocate;
    sqlite3_config(SQLITE_CONFIG_MALLOC, &counted);
    // The storage takes small pieces from a pool made in advance, which cannot fail. In the long
    // run they come from the allocator too.
    if (std::getenv("CLB_ALLOCATION_ALL"))
        sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0);
    return true;
}

const bool kReplaced = ReplaceStorageAllocator();

}  // namespace

void FailingAllocations::Begin(std::int64_t n, Refusal refusal, Counted counted)
{
    if (!kReplaced)
        std::abort();
    plan = {true, false, refusal, counted, n, 0};
}

std::int64_t FailingAllocations::End()
{
    plan.counting = false;
    return plan.count;
}

bool FailingAllocations::Reached()
{
    return plan.reached;
}

bool FailingAllocations::Refuses(Counted whose, const void* caller) noexcept
{
    if (!plan.counting || (plan.counted == Counted::Storage && whose == Counted::All))
        return false;
    ++plan.count;
    const bool refuses =
        plan.n > 0 && (plan.refusal == Refusal::One ? plan.count == plan.n : plan.count >= plan.n);
    plan.reached = plan.reached || refuses;
    return refuses && !CannotReport(caller);
}

}  // namespace clb

namespace {

void* Taken(std::size_t bytes, const void* caller) noexcept
{
    const bool refused = clb::FailingAllocations::Refuses(clb::Counted::All, caller);
    return refused ? nullptr : std::malloc(bytes > 0 ? bytes : 1);
}

void* Required(std::size_t bytes, const void* caller)
{
    if (void* const block = Taken(bytes, caller))
        return block;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t bytes)
{
    return Required(bytes, __builtin_return_address(0));
}
void* operator new[](std::size_t bytes)
{
    return Required(bytes, __builtin_return_address(0));
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept
{
    return Taken(bytes, __builtin_return_address(0));
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept
{
    return Taken(bytes, __builtin_return_address(0));
}
void operator delete(void* block) noexcept
{
    std::free(block);
}
void operator delete[](void* block) noexcept
{
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept
{
    std::free(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept
{
    std::free(block);
}
