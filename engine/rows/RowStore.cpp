#include "engine/rows/RowStore.h"

#include <algorithm>
#include <utility>

#include "engine/storage/Refusals.h"

namespace clb {

void RowStore::Start(std::size_t fields, Fetch fetch)
{
    fields_ = fields;
    mostBlocks_ = fields == 1 ? kMostBlocksOfOneField : kMostBlocks;
    fetch_ = std::move(fetch);
    rowIds_.clear();
    blocks_.clear();
    resident_.clear();
}

Value* RowStore::AppendFilled(std::int64_t rowId)
{
    // An exception adds no row.
    const std::size_t slot = Slots();
    Block& block = BlockOf(slot);
    Value* const place = Place(block, slot);
    rowIds_.push_back(rowId);
    block.loaded.set(slot % kBlockRows);
    return place;
}

void RowStore::Append(std::int64_t rowId)
{
    rowIds_.push_back(rowId);
}

bool RowStore::Holds(std::size_t slot) const
{
    const std::size_t number = slot / kBlockRows;
    return number < blocks_.size() && blocks_[number] &&
           blocks_[number]->loaded.test(slot % kBlockRows);
}

const Value* RowStore::Values(std::size_t slot)
{
    Block& block = BlockOf(slot);
    if (!block.loaded.test(slot % kBlockRows))
        Load(block, slot, RowsToLoad(block, slot));
    return Place(block, slot);
}

const Value* RowStore::Refresh(std::size_t slot)
{
    Block& block = BlockOf(slot);
    Load(block, slot, 1);
    return Place(block, slot);
}

RowStore::Block& RowStore::BlockOf(std::size_t slot)
{
    const std::size_t number = slot / kBlockRows;
    if (number >= blocks_.size())
        blocks_.resize(number + 1);
    if (!blocks_[number]) {
        if (fetch_ && resident_.size() == mostBlocks_)
            Evict();
        blocks_[number] = std::make_unique<Block>();
        if (fetch_)
            resident_.push_back(number);
    }
    blocks_[number]->used = ++clock_;
    return *blocks_[number];
}

Value* RowStore::Place(Block& block, std::size_t slot)
{
    const std::size_t at = slot % kBlockRows * fields_;
    if (block.values.size() < at + fields_)
        block.values.resize(at + fields_);
    return block.values.data() + at;
}

/// A row after its neighbour, or the first of a block, starts a walk: the other rows of the block
/// are read with it.
std::size_t RowStore::RowsToLoad(const Block& block, std::size_t slot) const
{
    const std::size_t first = slot % kBlockRows;
    if (first != 0 && !block.loaded.test(first - 1))
        return 1;
    const std::size_t most = std::min(kBlockRows - first, Slots() - slot);
    std::size_t count = 1;
    while (count < most && !block.loaded.test(first + count))
        ++count;
    return count;
}

void RowStore::Load(Block& block, std::size_t slot, std::size_t count)
{
    Place(block, slot + count - 1);
    const Rows asked = ~Rows() >> (kBlockRows - count) << slot % kBlockRows;
    const Rows before = block.loaded;
    block.loaded &= ~asked;  // after an exception a row may be half read
    const Rows found = fetch_(std::span(rowIds_).subspan(slot, count), Place(block, slot));
    block.loaded = before | found << slot % kBlockRows;
    if (!found.test(0))
        throw refuse::RowVanished();
}

void RowStore::Evict()
{
    const auto oldest = std::min_element(
        resident_.begin(), resident_.end(),
        [&](std::size_t a, std::size_t b) { return blocks_[a]->used < blocks_[b]->used; });
    blocks_[*oldest].reset();
    *oldest = resident_.back();
    resident_.pop_back();
}

}  // namespace clb
