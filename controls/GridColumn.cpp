#include "controls/GridColumn.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace clb {
namespace {

bool IsFigure(FieldType type)
{
    return type == FieldType::Long || type == FieldType::Money || type == FieldType::Double ||
           type == FieldType::Single;
}

}  // namespace

bool GridColumn::StandsRight() const
{
    return alignment == grid_align::kRight || IsFigure(dataType);
}

bool GridColumn::HeadingStandsRight() const
{
    return headingAlignment == grid_align::kRight || IsFigure(dataType);
}

const GridColumn& GridColumns::Item(std::int32_t index) const
{
    if (index < 1 || index > Count())
        throw RuntimeError(errors::SubscriptOutOfRange, "Subscript out of range");
    return columns_[static_cast<std::size_t>(index - 1)];
}

GridColumn& GridColumns::Item(std::int32_t index)
{
    return const_cast<GridColumn&>(static_cast<const GridColumns*>(this)->Item(index));
}

std::int32_t GridColumns::Add(GridColumn column)
{
    order_.reserve(order_.size() + 1);  // so that both grow or neither
    columns_.push_back(std::move(column));
    order_.push_back(Count());
    return Count();
}

void GridColumns::Clear()
{
    columns_.clear();
    order_.clear();
}

std::int32_t GridColumns::Position(std::int32_t index) const
{
    static_cast<void>(Item(index));
    return static_cast<std::int32_t>(std::find(order_.begin(), order_.end(), index) -
                                     order_.begin()) +
           1;
}

void GridColumns::Position(std::int32_t index, std::int32_t place)
{
    Item(index);
    order_.erase(std::find(order_.begin(), order_.end(), index));
    const auto at = std::clamp(place - 1, 0, static_cast<std::int32_t>(order_.size()));
    order_.insert(order_.begin() + at, index);
}

std::int32_t GridColumns::Find(const std::string& key) const
{
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&key](const GridColumn& column) { return column.key == key; });
    return found == columns_.end() ? 0 : static_cast<std::int32_t>(found - columns_.begin()) + 1;
}

std::int32_t GridColumns::Left(std::int32_t index) const
{
    if (Item(index).hidden)
        return 0;
    std::int32_t left = 0;
    for (const std::int32_t shown : order_) {
        if (shown == index)
            break;
        if (!Item(shown).hidden)
            left += Item(shown).width;
    }
    return left;
}

}  // namespace clb
