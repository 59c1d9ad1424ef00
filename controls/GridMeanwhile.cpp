// What another program has written to the rows meanwhile: read again without moving the user.

#include <algorithm>
#include <utility>

#include "controls/GridComponent.h"

namespace clb {

void GridComponent::ReadRowsAnew()
{
    if (!source_ || editing_ || dirty_)
        return;
    // Taken away first: rows that are read again for another reason have their numbers told anew.
    std::vector<Spot> places = std::exchange(places_, {});
    if (places.empty())
        for (std::size_t row = 1; row <= rows_.Count(); ++row)
            places.push_back(SpotOf(row, col_));
    RequeryOrUnbind();
    Freshen();
    places_ = std::move(places);
    Touch();
}

std::size_t GridComponent::RowNow(std::size_t row) const
{
    if (places_.empty() || row == 0 || row > places_.size())
        return row;
    const Spot& place = places_[row - 1];
    if (place.kind != GridRowKind::Data)
        return place.kind == GridRowKind::NewRow ? rows_.NewRow()
                                                 : rows_.OfGroup(place.kind, place.group);
    const std::size_t now = rows_.OfIdentity(place.identity);
    // A stored row's identity may have been given to another row after it was deleted.
    return now != 0 && rows_.Key(now) == place.key ? now : 0;
}

GridComponent::Meanwhile GridComponent::RereadRow()
{
    Meanwhile found;
    if (row_ == 0 || rows_.Kind(row_) != GridRowKind::Data)
        return found;
    found.gone = !source_->Reread(rows_.Record(row_));
    // Columns that are calculated were added after the row was read.
    const auto bound = static_cast<std::int32_t>(stored_.size());
    for (std::int32_t column = 1; !found.gone && column <= bound; ++column) {
        const Value now = rows_.Stored(row_, column);
        if (now == stored_[Index(column)])
            continue;
        if (columns_.Item(column).updatable)
            found.columns.push_back(column);
        stored_[Index(column)] = now;
        if (!changed_[Index(column)])
            cells_[Index(column)] = now;
    }
    Touch();
    return found;
}

void GridComponent::TakeStored(std::int32_t column)
{
    cells_.at(Index(column)) = stored_.at(Index(column));
    changed_[Index(column)] = false;
    dirty_ = std::find(changed_.begin(), changed_.end(), true) != changed_.end();
    Touch();
}

}  // namespace clb
