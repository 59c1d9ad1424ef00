// The grid's current row as a copy that can be changed before it is saved.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/Value.h"
#include "controls/GridRows.h"
#include "controls/GridSource.h"

namespace clb {

/// The cells of one displayed row: what is stored, and what would be saved. Columns are numbered
/// from 1; a column that was added after Load has no cell.
class EditedRow {
public:
    /// Copies a displayed row. All cells are null in a row that is not data, and for row 0.
    void Load(const GridRows& rows, std::size_t row, const GridColumns& columns);
    /// Forgets all cells.
    void Clear();

    /// The row has unsaved changes.
    [[nodiscard]] bool Dirty() const { return dirty_; }
    /// The value that would be saved; null if the column has no cell.
    [[nodiscard]] Value Cell(std::int32_t column) const;
    /// Changes a cell. Throws std::out_of_range if the column has none.
    void Write(std::int32_t column, Value value);
    /// Whether the cell was changed.
    [[nodiscard]] bool Typed(std::int32_t column) const { return changed_.at(Index(column)); }
    /// Whether that cell was changed and no other.
    [[nodiscard]] bool OnlyTyped(std::int32_t column) const
    {
        return Typed(column) && std::count(changed_.begin(), changed_.end(), true) == 1;
    }
    /// The value that is stored, as far as it was read.
    [[nodiscard]] const Value& Stored(std::int32_t column) const
    {
        return stored_.at(Index(column));
    }
    /// Gives up the change of a cell.
    void TakeStored(std::int32_t column);
    /// The changes of updatable columns, for the source.
    [[nodiscard]] std::vector<IGridSource::Change> Changes(const GridColumns& columns) const;
    /// Takes what is stored now into the cells that were not changed. Returns the updatable columns
    /// whose stored value is another one than before.
    std::vector<std::int32_t> Follow(const GridRows& rows, std::size_t row,
                                     const GridColumns& columns);

    /// Row key, and unseen identity of the stored row, as they were when the row was loaded.
    [[nodiscard]] const Value& Key() const { return key_; }
    [[nodiscard]] std::size_t Identity() const { return identity_; }

private:
    static std::size_t Index(std::int32_t column) { return static_cast<std::size_t>(column - 1); }

    std::vector<Value> cells_;
    std::vector<Value> stored_;
    std::vector<bool> changed_;
    bool dirty_ = false;
    Value key_;
    std::size_t identity_ = 0;
};

}  // namespace clb
