// Where a cell of the grid is, in terms that survive reading the rows again.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "controls/GridRows.h"

namespace clb {

/// A cell by its row's key and identity.
struct GridSpot {
    Value key;  ///< row key; null in rows that are not data
    std::size_t row = 0;
    std::size_t identity = 0;  ///< unseen identity of the stored row; 0 for none
    std::int32_t column = kFirstColumn;
    GridRowKind kind = GridRowKind::Data;
    std::string group;  ///< of a group's heading or footer
};

/// The spot of a displayed row; row 0 is a spot without a row.
GridSpot SpotOf(const GridRows& rows, std::size_t row, std::int32_t column);
/// The same with the key and identity that the row had when it was read: the source's rows may have
/// been replaced since.
GridSpot SpotOf(const GridRows& rows, std::size_t row, std::int32_t column, const Value& key,
                std::size_t identity);

/// The same row, else the first with its key, else the row that is now in its place; 0 if there are
/// no rows.
std::size_t FindSpot(const GridRows& rows, const GridSpot& spot);

/// The rows as they were when their numbers were last reported. Someone who names a row by that
/// number means the row that had it then.
class ReportedRows {
public:
    /// Numbers mean the present rows again.
    void Forget() { spots_.clear(); }
    /// Takes the reported rows out before the rows are read again: the present rows if their
    /// numbers have not changed since. Put them back afterwards.
    std::vector<GridSpot> Take(const GridRows& rows);
    void PutBack(std::vector<GridSpot> spots) { spots_ = std::move(spots); }
    /// The present number of the row that was reported with this number; 0 if the row is gone.
    [[nodiscard]] std::size_t Now(const GridRows& rows, std::size_t row) const;
    /// Where the row was that was reported with this number. Only for numbers for which Now
    /// returns 0.
    [[nodiscard]] const GridSpot& At(std::size_t row) const { return spots_.at(row - 1); }

private:
    std::vector<GridSpot> spots_;
};

}  // namespace clb
