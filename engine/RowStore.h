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

/// The values of a result set's rows, by slot. Where rows carry their identity only some blocks of
/// values are held; the others are fetched again when asked for, so that a walk over a million rows
/// stays small.
class RowStore {
public:
    static constexpr std::size_t kBlockRows = 256;

    /// Which rows of a block, or of those asked for, are there.
    using Rows = std::bitset<kBlockRows>;
    /// Fills the values of the rows with these identities, at most a block of them, one row behind
    /// the other; a row that is gone is left out.
    using Fetch = std::function<Rows(std::span<const std::int64_t> rowIds, Value* values)>;

    /// Forgets all rows. Without a fetch every row's values are kept.
    void Start(std::size_t fields, Fetch fetch);
    /// Adds a row and gives the place for its values, for the caller to fill.
    Value* AppendFilled(std::int64_t rowId);
    /// Adds a row whose values are fetched when asked for.
    void Append(std::int64_t rowId);

    /// Whether the row's values are held, so that asking for them reads nothing.
    [[nodiscard]] bool Holds(std::size_t slot) const;

    [[nodiscard]] std::size_t Slots() const { return rowIds_.size(); }
    [[nodiscard]] std::int64_t RowId(std::size_t slot) const { return rowIds_[slot]; }
    /// The row's values; they stay in place until another row is asked for, added or read again.
    /// Throws EngineError when the row is gone.
    const Value* Values(std::size_t slot);
    /// Reads the row again. Throws EngineError when it is gone.
    const Value* Refresh(std::size_t slot);
    /// Whether a row added at opening still gets its values kept.
    [[nodiscard]] bool KeepsMore() const { return !fetch_ || Slots() < kKeptAtOpening; }

    static constexpr std::size_t kKeptAtOpening = 16 * kBlockRows;

private:
    /// How many blocks are held if rows can be fetched again: more of them for a single field, whose
    /// rows are small.
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
    std::vector<std::size_t> resident_;  // blocks held, kept only where rows can be fetched
    std::uint64_t clock_ = 0;
};

}  // namespace clb
