// The numbering of the rows of a result set.
#pragma once
#include <cstddef>
#include <vector>

namespace clb {

/// Which rows of a result set still exist. A row keeps its slot, which is its place in the order of
/// reading and adding. Its number counts only the existing rows. Every operation takes logarithmic
/// time at most. Nothing is stored until a row is removed.
class LiveRows {
public:
    void Clear();
    void Append();
    /// Undoes the last Append.
    void DropLast();
    void Remove(std::size_t slot);

    [[nodiscard]] std::size_t Slots() const { return slots_; }
    [[nodiscard]] std::size_t Count() const { return count_; }
    [[nodiscard]] bool IsLive(std::size_t slot) const;
    /// Returns the slot of the row with this 0-based number, or Slots() if there are fewer rows.
    [[nodiscard]] std::size_t SlotOf(std::size_t number) const;
    /// Returns the number of existing rows before the slot.
    [[nodiscard]] std::size_t NumberOf(std::size_t slot) const;
    /// Returns the slot itself if its row exists, else the next one with a row, or Slots().
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
