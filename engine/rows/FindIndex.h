// An index that makes searches in a result set fast.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "base/Value.h"

namespace clb {

/// Returns the hash of a value. Equal values of one type have equal hashes.
std::uint64_t HashOf(const Value& value);

/// An index of the values of one field: from a hash to slots in ascending order. Different values
/// can have the same hash, so the caller must compare what it finds.
class FindIndex {
public:
    /// Makes room for so many values at once.
    void Reserve(std::size_t count);
    void Add(std::uint64_t hash, std::size_t slot);
    void Remove(std::uint64_t hash, std::size_t slot);
    /// Returns the first slot from here on that is accepted, or kNotFound.
    [[nodiscard]] std::size_t Find(std::uint64_t hash, std::size_t from,
                                   const std::function<bool(std::size_t)>& accept) const;
    static constexpr std::size_t kNotFound = SIZE_MAX;

private:
    using Slots = std::vector<std::uint32_t>;
    /// One slot, or several in a list.
    struct Entry {
        std::uint64_t hash = 0;
        std::uint32_t slot = kNone;
        std::uint32_t list = kFree;
    };
    static constexpr std::uint32_t kNone = UINT32_MAX;
    static constexpr std::uint32_t kFree = UINT32_MAX;        ///< the entry is not used
    static constexpr std::uint32_t kSingle = UINT32_MAX - 1;  ///< no list

    [[nodiscard]] std::size_t Locate(std::uint64_t hash) const;
    void Grow(std::size_t size);

    std::vector<Entry> table_;  // its length is a power of two; at most two thirds full
    std::size_t used_ = 0;
    std::vector<Slots> lists_;
};

}  // namespace clb
