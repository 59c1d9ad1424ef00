// The rows that a command has changed so far, with what they were.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/storage/ChangeWatch.h"

namespace clb {

/// How a row differs from what it was: whether it was there and is there, and the cells that it
/// had.
struct RowChanged {
    std::int64_t row = 0;    ///< identity
    bool was = false;        ///< it was there before
    bool is = false;         ///< it is there now
    std::uint64_t hash = 0;  ///< of its cells now
    /// Columns (from 0) with their packed cells from before. All columns if it is no longer there,
    /// or was there with another content as a whole; otherwise those that were written.
    std::vector<std::pair<int, std::string_view>> before{};
};

/// Takes what a log holds, a table at a time and the rows of each in the order of their identities.
class IChangesVisitor {
public:
    virtual ~IChangesVisitor() = default;
    virtual void Table(const std::string& name, int columns) = 0;
    virtual void Row(const RowChanged& row) = 0;
};

/// Notes each change of a row. A row that changes again and again is one change in the end.
class ChangeLog {
public:
    /// Notes the change before it takes place. Throws std::bad_alloc.
    void Add(const ChangingRow& row);
    /// Number of changes noted.
    [[nodiscard]] std::size_t Size() const { return entries_.size(); }
    [[nodiscard]] bool Empty() const { return entries_.empty(); }
    /// Forgets all but the first changes.
    void CutTo(std::size_t size) noexcept;
    void Clear() noexcept;
    /// The hash of the last noted row's cells before its change; 0 for an insertion.
    [[nodiscard]] std::uint64_t LastBefore() const { return lastBefore_; }

    struct Table {
        std::string name;
        int columns;
    };
    /// The tables of the changes noted.
    [[nodiscard]] std::vector<Table> Tables() const;
    /// Hands out what has changed in the end, without the rows that are gone as they came and those
    /// that were written with what they held.
    void Visit(IChangesVisitor& visitor) const;

private:
    struct Entry {
        std::int64_t row;
        std::uint64_t hashBefore;  ///< of its cells before; 0: it was not there
        std::uint64_t hash;
        std::size_t cells;  ///< where the cells begin; they end where those of the next entry begin
        std::uint32_t table;
        bool was;
        bool is;
    };

    std::uint32_t TableOf(const ChangingRow& row);
    std::uint64_t HashOf(const ChangingRow& row, bool after);
    void AddGone(const ChangingRow& row, std::uint32_t table);
    void AddNew(const ChangingRow& row, std::uint32_t table);
    void AddWritten(const ChangingRow& row, std::uint32_t table);
    [[nodiscard]] std::vector<std::uint32_t> EntriesOf(std::uint32_t table) const;
    void Fold(std::size_t entry, RowChanged& into, int columns) const;
    [[nodiscard]] std::string_view CellsOf(std::size_t entry) const;

    std::vector<Table> tables_;
    std::vector<Entry> entries_;
    std::string cells_;  ///< for each entry pairs of a column and its packed cell
    std::uint64_t lastBefore_ = 0;
    std::string before_;  // of the row at hand; kept for their memory
    std::string after_;
};

}  // namespace clb
