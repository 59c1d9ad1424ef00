// Lets chosen allocations fail.
#pragma once
#include <cstdint>

namespace clb {

/// Which allocations fail, counted from the chosen one.
enum class Refusal {
    One,  ///< only that one
    All   ///< that one and all that follow
};

/// Whose allocations are counted and may fail.
enum class Counted { All, Storage };

/// Counts the allocations of the program and of the storage below it in one sequence, and lets the
/// n-th fail. This program's operator new and the storage's allocator are replaced by ones that ask
/// here. Only the thread that called Begin is counted.
class FailingAllocations {
public:
    /// Counts from 1 on and lets the n-th allocation fail; 0 only counts.
    static void Begin(std::int64_t n, Refusal refusal, Counted counted = Counted::All);
    /// From now on nothing fails. Returns how many allocations were requested.
    static std::int64_t End();
    /// Whether the n-th allocation was requested since Begin.
    static bool Reached();
    /// Called by the allocators with the owner of the allocation and the code that requests it.
    /// Returns whether the allocation must fail.
    static bool Refuses(Counted whose, const void* caller) noexcept;
};

}  // namespace clb
