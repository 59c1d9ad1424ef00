#include "desktop/grid/GridLayout.h"

#include <algorithm>
#include <cstdlib>

#include "controls/GridComponent.h"

namespace clb {

void GridLayout::Take(const GridComponent& grid, const Widths& widths)
{
    spans_.clear();
    totalWidth_ = 0;
    for (const std::int32_t column : grid.Columns().Displayed()) {
        const GridColumn& item = grid.Columns().Item(column);
        if (item.hidden || item.width <= 0)
            continue;
        const auto drawn = widths.find(column);
        const int width = drawn == widths.end() ? item.width : drawn->second;
        spans_.push_back({column, totalWidth_, width});
        totalWidth_ += width;
    }
    rowCount_ = grid.Rows().Count();
}

void GridLayout::Scroll(int left, int top)
{
    scrollLeft_ = left;
    scrollTop_ = top;
}

std::size_t GridLayout::RowAt(int y) const
{
    const int inside = y + scrollTop_;
    if (inside < 0)
        return 0;
    const auto row = static_cast<std::size_t>(inside / rowHeight_) + 1;
    return row <= rowCount_ ? row : 0;
}

std::int32_t GridLayout::ColumnAt(int x) const
{
    const int inside = x - selectorWidth_ + scrollLeft_;
    if (x < selectorWidth_)
        return 0;
    const auto found = std::find_if(spans_.begin(), spans_.end(), [inside](const Span& span) {
        return inside >= span.left && inside < span.left + span.width;
    });
    return found == spans_.end() ? 0 : found->column;
}

std::int32_t GridLayout::LineAt(int x) const
{
    constexpr int kReach = 4;
    if (x < selectorWidth_)
        return 0;
    const int inside = x - selectorWidth_ + scrollLeft_;
    // Searched from the right, so that a very narrow column can be made wider again.
    const auto found = std::find_if(spans_.rbegin(), spans_.rend(), [inside](const Span& span) {
        return std::abs(inside - (span.left + span.width)) <= kReach;
    });
    return found == spans_.rend() ? 0 : found->column;
}

int GridLayout::RowTop(std::size_t row) const
{
    return (static_cast<int>(row) - 1) * rowHeight_ - scrollTop_;
}

QRect GridLayout::CellRect(std::size_t row, const Span& span) const
{
    return {selectorWidth_ + span.left - scrollLeft_, RowTop(row), span.width, rowHeight_};
}

QRect GridLayout::CellRect(std::size_t row, std::int32_t column) const
{
    for (const Span& span : spans_)
        if (span.column == column)
            return CellRect(row, span);
    return {};
}

QRect GridLayout::RowRect(std::size_t row) const
{
    return {selectorWidth_ - scrollLeft_, RowTop(row), totalWidth_ + sideWidth_, rowHeight_};
}

QRect GridLayout::SideRect(std::size_t row) const
{
    return {selectorWidth_ - scrollLeft_ + totalWidth_, RowTop(row), sideWidth_, rowHeight_};
}

QRect GridLayout::SelectorRect(std::size_t row) const
{
    return {0, RowTop(row), selectorWidth_, rowHeight_};
}

std::int32_t GridLayout::Neighbour(std::int32_t column, int steps) const
{
    const auto found = std::find_if(spans_.begin(), spans_.end(),
                                    [column](const Span& span) { return span.column == column; });
    if (found == spans_.end())
        return FirstColumn();
    const auto place = static_cast<int>(found - spans_.begin()) + steps;
    if (place < 0 || place >= static_cast<int>(spans_.size()))
        return 0;
    return spans_[static_cast<std::size_t>(place)].column;
}

std::size_t GridLayout::PlaceOf(std::int32_t column) const
{
    const auto found = std::find_if(spans_.begin(), spans_.end(),
                                    [column](const auto& span) { return span.column == column; });
    return found == spans_.end() ? 0 : static_cast<std::size_t>(found - spans_.begin()) + 1;
}

std::int32_t GridLayout::FirstColumn() const
{
    return spans_.empty() ? 0 : spans_.front().column;
}

std::int32_t GridLayout::LastColumn() const
{
    return spans_.empty() ? 0 : spans_.back().column;
}

}  // namespace clb
