// How often something was seen, by its hash.
#pragma once
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace clb {

/// Counts hashes of 64 bits of which most come once, in about 16 bytes each. Made for the rows of
/// large files.
class HashCounts {
public:
    /// Counts the hash and returns how often it was counted now, from 1.
    std::uint32_t Add(std::uint64_t hash)
    {
        if (slots_.size() * kMost <= (filled_ + 1) * kOf)
            Grow();
        std::uint64_t& slot = slots_[PlaceOf(hash)];
        if (slot == Kept(hash))
            return ++further_.try_emplace(slot, 1).first->second;
        slot = Kept(hash);
        ++filled_;
        return 1;
    }
    [[nodiscard]] std::uint32_t Count(std::uint64_t hash) const
    {
        if (slots_.empty() || slots_[PlaceOf(hash)] == 0)
            return 0;
        const auto at = further_.find(Kept(hash));
        return at == further_.end() ? 1 : at->second;
    }

private:
    // Slots are filled to two thirds.
    static constexpr std::size_t kMost = 2;
    static constexpr std::size_t kOf = 3;
    static constexpr std::size_t kFirst = 64;

    /// Zero marks a free slot.
    static std::uint64_t Kept(std::uint64_t hash) { return hash == 0 ? 1 : hash; }

    /// The slot that has the hash, or the free one for it.
    [[nodiscard]] std::size_t PlaceOf(std::uint64_t hash) const
    {
        constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15ULL;  // hashes may differ in few bits
        const std::uint64_t kept = Kept(hash);
        const std::size_t last = slots_.size() - 1;
        std::size_t place = ((kept * kSpread) >> 32U) & last;
        while (slots_[place] != 0 && slots_[place] != kept)
            place = (place + 1) & last;
        return place;
    }
    void Grow()
    {
        std::vector<std::uint64_t> former(slots_.empty() ? kFirst : 2 * slots_.size());
        former.swap(slots_);
        for (const std::uint64_t kept : former)
            if (kept != 0)
                slots_[PlaceOf(kept)] = kept;
    }

    std::vector<std::uint64_t> slots_;  ///< a power of two of them, or none
    std::size_t filled_ = 0;
    std::unordered_map<std::uint64_t, std::uint32_t> further_;  ///< of those seen more than once
};

}  // namespace clb
