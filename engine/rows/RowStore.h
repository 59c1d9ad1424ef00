// The values of a result set's rows.
#pragma once
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "base/Value.h"

namespace clb {

/// The values of a result set's rows, by slot. If the rows have identities, only some blocks of
/// values are kept. Other blocks are fetched again when needed, so that a million rows need little
/// memory.
class RowStore {
public:
    static constexpr std::size_t kBlockRows = 256;

    /// Which rows of a block, or of the requested ones, exist.
    using Rows = std::bitset<kBlockRows>;
    /// Fills in the values of the rows with these identities, at most one block, one row after the
    /// other. Skips a row that no longer exists.
    using Fetch = std::function<Rows(std::span<const std::int64_t> rowIds, Value* values)>;

    /// Removes all rows. Without a fetch function the values of every row are kept.
    void Start(std::size_t fields, Fetch fetch);
    /// Adds a row and returns the place for its values, which the caller must fill.
    Value* AppendFilled(std::int64_t rowId);
    /// Adds a row whose values are fetched when needed.
    void Append(std::int64_t rowId);

    /// Whether the row's values are in memory, so that nothing has to be read.
    [[nodiscard]] bool Holds(std::size_t slot) const;

    [[nodiscard]] std::size_t Slots() const { return rowIds_.size(); }
    [[nodiscard]] std::int64_t RowId(std::size_t slot) const { return rowIds_[slot]; }
    /// Returns the row's values. They are valid until another row is requested, added or read
    /// again. Throws EngineError if the row no longer exists.
    const Value* Values(std::size_t slot);
    /// Reads the row again. Throws EngineError if it no longer exists.
    const Value* Refresh(std::size_t slot);
    /// Whether the values of another row may be kept while the set is opened.
    [[nodiscard]] bool KeepsMore() const { return !fetch_ || Slots() < kKeptAtOpening; }

    static constexpr std::size_t kKeptAtOpening = 16 * kBlockRows;

private:
    /// How many blocks are held if rows can be fetched again: more of them for a single field,
    /// whose rows are small.
    static constexpr std::size_t kMostBlocks = 32;
    static constexpr std::size_t kMostBlocksOfOneField = 512;

    struct Block {
        std::vector<Value> values;
        Rows loaded;
        std::uint64_t used = 0;
    };

    Block& BlockOf(std::size_t slot);
    Value* Place(Block& block, std::size_t slot);
    void Load(Block& block, std::size_t slot, std::size_t count);
    [[nodiscard]] std::size_t RowsToLoad(const Block& block, std::size_t slot) const;
    void Evict();

    std::size_t fields_ = 0;
    std::size_t mostBlocks_ = kMostBlocks;
    Fetch fetch_;
    std::vector<std::int64_t> rowIds_;
    std::vector<std::unique_ptr<Block>> blocks_;
    std::vector<std::size_t> resident_;  // the blocks in memory, if rows can be fetched
    std::uint64_t clock_ = 0;
};

}  // namespace clb
