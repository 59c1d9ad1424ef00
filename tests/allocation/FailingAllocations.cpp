#include "tests/allocation/FailingAllocations.h"

#include <sqlite3.h>

#include <cstdlib>
#include <new>

namespace clb {
namespace {

struct Plan {
    bool counting = false;
    bool failed = false;
    Refusal refusal = Refusal::One;
    std::int64_t n = 0;
    std::int64_t count = 0;
};

thread_local Plan plan;

sqlite3_mem_methods storage;  // the storage's own allocator

void* Allocate(int bytes)
{
    return FailingAllocations::Refuses() ? nullptr : storage.xMalloc(bytes);
}

void* Reallocate(void* block, int bytes)
{
    return FailingAllocations::Refuses() ? nullptr : storage.xRealloc(block, bytes);
}

/// Before main: the storage takes another allocator only before its first use.
bool ReplaceStorageAllocator()
{
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &storage);
    sqlite3_mem_methods counted = storage;
    counted.xMalloc = Allocate;
    counted.xRealloc = Reallocate;
    sqlite3_config(SQLITE_CONFIG_MALLOC, &counted);
    // Small pieces come from the allocator too, not from a store made ahead.
    return sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0) == SQLITE_OK;
}

const bool replaced = ReplaceStorageAllocator();

}  // namespace

void FailingAllocations::Begin(std::int64_t n, Refusal refusal)
{
    if (!replaced)
        std::abort();
    plan = {true, false, refusal, n, 0};
}

std::int64_t FailingAllocations::End()
{
    plan.counting = false;
    return plan.count;
}

bool FailingAllocations::HasFailed()
{
    return plan.failed;
}

bool FailingAllocations::Refuses() noexcept
{
    if (!plan.counting)
        return false;
    ++plan.count;
    const bool refuses =
        plan.n > 0 && (plan.refusal == Refusal::One ? plan.count == plan.n : plan.count >= plan.n);
    plan.failed = plan.failed || refuses;
    return refuses;
}

}  // namespace clb

namespace {

void* Taken(std::size_t bytes) noexcept
{
    return clb::FailingAllocations::Refuses() ? nullptr : std::malloc(bytes > 0 ? bytes : 1);
}

void* Required(std::size_t bytes)
{
    if (void* const block = Taken(bytes))
        return block;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t bytes)
{
    return Required(bytes);
}
void* operator new[](std::size_t bytes)
{
    return Required(bytes);
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept
{
    return Taken(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept
{
    return Taken(bytes);
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
