#include "engine/RowStore.h"

#include <algorithm>
#include <utility>

namespace clb {

void RowStore::Start(std::size_t fields, Fetch fetch)
{
    fields_ = fields;
    fetch_ = std::move(fetch);
    rowIds_.clear();
    blocks_.clear();
    resident_.clear();
}

Value* RowStore::AppendFilled(std::int64_t rowId)
{
    const std::size_t slot = Slots();
    rowIds_.push_back(rowId);
    Block& block = BlockOf(slot);
    block.loaded.set(slot % kBlockRows);
    return Place(block, slot);
}

void RowStore::Append(std::int64_t rowId)
{
    rowIds_.push_back(rowId);
}

const Value* RowStore::Values(std::size_t slot)
{
    Block& block = BlockOf(slot);
    if (!block.loaded.test(slot % kBlockRows))
        Load(block, slot);
    return Place(block, slot);
}

const Value* RowStore::Refresh(std::size_t slot)
{
    Block& block = BlockOf(slot);
    Load(block, slot);
    return Place(block, slot);
}

RowStore::Block& RowStore::BlockOf(std::size_t slot)
{
    const std::size_t number = slot / kBlockRows;
    if (number >= blocks_.size())
        blocks_.resize(number + 1);
    if (!blocks_[number]) {
        if (fetch_ && resident_.size() == kMostBlocks)
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

void RowStore::Load(Block& block, std::size_t slot)
{
    fetch_(rowIds_[slot], Place(block, slot));
    block.loaded.set(slot % kBlockRows);
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
