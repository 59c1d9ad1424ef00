#pragma once
#include <cstdint>

namespace clb {

/// Which allocations fail, from the one with a number on.
enum class Refusal {
    One,  ///< that one only
    All   ///< that one and all that follow
};

/// The memory of the program and of the storage below it: both are counted in one sequence, and the
/// n-th allocation fails. This program's operator new and the storage's allocator are replaced by
/// ones that ask here. Only the thread that began is counted.
class FailingAllocations {
public:
    /// Counts from 1 on and lets the n-th allocation fail; 0 only counts.
    static void Begin(std::int64_t n, Refusal refusal);
    /// Nothing fails any more. Gives how many allocations were asked for.
    static std::int64_t End();
    /// Whether one has failed since Begin.
    static bool HasFailed();
    /// Asked by the allocators: whether to refuse this one.
    static bool Refuses() noexcept;
};

}  // namespace clb
