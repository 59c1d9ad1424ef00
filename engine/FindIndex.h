#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "base/Value.h"

namespace clb {

/// Hash of a value; equal values of one type have equal hashes.
std::uint64_t HashOf(const Value& value);

/// Where the values of one field stand: hash -> slots in ascending order. What it finds may be
/// another value of the same hash, so candidates are to be compared.
class FindIndex {
public:
    /// Makes room for so many values at once.
    void Reserve(std::size_t count);
    void Add(std::uint64_t hash, std::size_t slot);
    void Remove(std::uint64_t hash, std::size_t slot);
    /// The first slot from here on that is accepted; npos when there is none.
    [[nodiscard]] std::size_t Find(std::uint64_t hash, std::size_t from,
                                   const std::function<bool(std::size_t)>& accept) const;
    static constexpr std::size_t npos = SIZE_MAX;

private:
    using Slots = std::vector<std::uint32_t>;
    /// One slot by itself, or several in a list of their own.
    struct Entry {
        std::uint64_t hash = 0;
        std::uint32_t slot = kNone;
        std::uint32_t list = kFree;
    };
    static constexpr std::uint32_t kNone = UINT32_MAX;
    static constexpr std::uint32_t kFree = UINT32_MAX;        ///< the entry was never used
    static constexpr std::uint32_t kSingle = UINT32_MAX - 1;  ///< no list

    [[nodiscard]] std::size_t Locate(std::uint64_t hash) const;
    void Grow(std::size_t size);

    std::vector<Entry> table_;  // a power of two long, at most half full
    std::size_t used_ = 0;
    std::vector<Slots> lists_;
};

}  // namespace clb
