#include "controls/GridSpot.h"

#include <algorithm>
#include <utility>

namespace clb {

GridSpot SpotOf(const GridRows& rows, std::size_t row, std::int32_t column)
{
    return row == 0 ? SpotOf(rows, row, column, Null{}, 0)
                    : SpotOf(rows, row, column, rows.Key(row), rows.Identity(row));
}

GridSpot SpotOf(const GridRows& rows, std::size_t row, std::int32_t column, const Value& key,
                std::size_t identity)
{
    GridSpot spot;
    spot.row = row;
    spot.column = column;
    if (row == 0)
        return spot;
    spot.kind = rows.Kind(row);
    spot.key = key;
    spot.identity = identity;
    if (spot.kind == GridRowKind::GroupHeading || spot.kind == GridRowKind::GroupFooter)
        spot.group = rows.GroupValue(row);
    return spot;
}

std::size_t FindSpot(const GridRows& rows, const GridSpot& spot)
{
    std::size_t row = 0;
    if (spot.kind == GridRowKind::NewRow)
        row = rows.NewRow();
    else if (spot.kind != GridRowKind::Data)
        row = rows.OfGroup(spot.kind, spot.group);
    if (row == 0 && spot.identity != 0)
        row = rows.OfIdentity(spot.identity);
    if (row == 0 && !IsNull(spot.key))
        row = rows.OfKey(spot.key);
    return row != 0 ? row : std::min(std::max<std::size_t>(spot.row, 1), rows.Count());
}

std::vector<GridSpot> ReportedRows::Take(const GridRows& rows)
{
    std::vector<GridSpot> spots = std::exchange(spots_, {});
    if (spots.empty())
        for (std::size_t row = 1; row <= rows.Count(); ++row)
            spots.push_back(SpotOf(rows, row, kFirstColumn));
    return spots;
}

std::size_t ReportedRows::Now(const GridRows& rows, std::size_t row) const
{
    if (spots_.empty() || row == 0 || row > spots_.size())
        return row;
    const GridSpot& spot = spots_[row - 1];
    if (spot.kind == GridRowKind::NewRow)
        return rows.NewRow();
    if (spot.kind != GridRowKind::Data)
        return rows.OfGroup(spot.kind, spot.group);
    const std::size_t now = rows.OfIdentity(spot.identity);
    // The identity of a deleted row may have been given to another row.
    return now != 0 && rows.Key(now) == spot.key ? now : 0;
}

}  // namespace clb
