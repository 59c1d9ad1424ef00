#pragma once
#include <cstddef>
#include <vector>

namespace clb {

/// Which rows of a result set are still there. A row keeps its slot, its place in the order of
/// opening and adding, for good; its number counts only the rows that are left. Every operation is
/// at most logarithmic; nothing is stored until a row is removed.
class LiveRows {
public:
    void Clear();
    void Append();
    /// Takes the last Append back.
    void DropLast();
    void Remove(std::size_t slot);

    [[nodiscard]] std::size_t Slots() const { return slots_; }
    [[nodiscard]] std::size_t Count() const { return count_; }
    [[nodiscard]] bool IsLive(std::size_t slot) const;
    /// The slot of the row with this 0-based number; Slots() when there are fewer.
    [[nodiscard]] std::size_t SlotOf(std::size_t number) const;
    /// How many rows are left in front of the slot.
    [[nodiscard]] std::size_t NumberOf(std::size_t slot) const;
    /// The slot itself or the next one with a row; Slots() when there is none.
    [[nodiscard]] std::size_t NextLive(std::size_t slot) const { return SlotOf(NumberOf(slot)); }

private:
    void Build();

    std::size_t slots_ = 0;
    std::size_t count_ = 0;
    std::vector<bool> live_;
    std::vector<std::size_t>
        tree_;  // sums of ranges that end at i (1-based), as long as i's lowest bit
};

}  // namespace clb
