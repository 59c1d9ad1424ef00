// Lets chosen allocations fail.
#pragma once
#include <cstdint>

namespace clb {

/// Which allocations fail, from the one with a number on.
enum class Refusal {
    One,  ///< that one only
    All   ///< that one and all that follow
};

/// Whose allocations are counted and may fail.
enum class Counted { All, Storage };

/// The memory of the program and of the storage below it: both are counted in one sequence, and the
/// n-th allocation fails. This program's operator new and the storage's allocator are replaced by
/// ones that ask here. Only the thread that began is counted.
class FailingAllocations {
public:
    /// Counts from 1 on and lets the n-th allocation fail; 0 only counts.
    static void Begin(std::int64_t n, Refusal refusal, Counted counted = Counted::All);
    /// Nothing fails any more. Gives how many allocations were asked for.
    static std::int64_t End();
    /// Whether the n-th was asked for since Begin.
    static bool Reached();
    /// Asked by the allocators, with whose allocation it is and the code that asks for it: whether
    /// to refuse this one.
    static bool Refuses(Counted whose, const void* caller) noexcept;
};

}  // namespace clb
