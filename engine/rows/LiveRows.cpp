#include "engine/rows/LiveRows.h"

#include <bit>

namespace clb {
namespace {

std::size_t LowestBit(std::size_t i)
{
    return i & (~i + 1);
}

}  // namespace

void LiveRows::Clear()
{
    slots_ = 0;
    count_ = 0;
    live_.clear();
    tree_.clear();
}

void LiveRows::Append()
{
    // An exception leaves everything as it was.
    if (!tree_.empty()) {
        const std::size_t from = slots_ + 1 - LowestBit(slots_ + 1);
        tree_.push_back(1 + NumberOf(slots_) - NumberOf(from));
        try {
            live_.push_back(true);
        } catch (...) {
            tree_.pop_back();
            throw;
        }
    }
    ++slots_;
    ++count_;
}

void LiveRows::DropLast()
{
    if (!tree_.empty()) {
        tree_.pop_back();
        live_.pop_back();
    }
    --slots_;
    --count_;
}

void LiveRows::Build()
{
    live_.assign(slots_, true);
    tree_.resize(slots_ + 1);
    for (std::size_t i = 1; i <= slots_; ++i)
        tree_[i] = LowestBit(i);
}

void LiveRows::Remove(std::size_t slot)
{
    if (tree_.empty())
        Build();
    if (!live_[slot])
        return;
    live_[slot] = false;
    --count_;
    for (std::size_t i = slot + 1; i < tree_.size(); i += LowestBit(i))
        --tree_[i];
}

bool LiveRows::IsLive(std::size_t slot) const
{
    return slot < slots_ && (tree_.empty() || live_[slot]);
}

std::size_t LiveRows::NumberOf(std::size_t slot) const
{
    if (tree_.empty())
        return slot;
    std::size_t sum = 0;
    for (std::size_t i = slot; i > 0; i -= LowestBit(i))
        sum += tree_[i];
    return sum;
}

std::size_t LiveRows::SlotOf(std::size_t number) const
{
    if (number >= count_)
        return slots_;
    if (tree_.empty())
        return number;
    std::size_t at = 0;
    for (std::size_t step = std::bit_floor(slots_); step > 0; step /= 2)
        if (at + step <= slots_ && tree_[at + step] <= number) {
            at += step;
            number -= tree_[at];
        }
    return at;
}

}  // namespace clb
