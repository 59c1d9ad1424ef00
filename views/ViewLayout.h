// The grid's columns and the totals line, laid out as a view's definition says.
#pragma once
#include <cstdint>
#include <map>

#include "views/ViewDefinition.h"
#include "views/ViewTargets.h"

namespace clb {

/// Lays out the grid and the totals line below it. The targets are borrowed.
class ViewLayout {
public:
    explicit ViewLayout(const ViewTargets& targets) : targets_(targets) {}

    /// Sets captions, lists, groups and the totals' label after the grid was bound to the view's
    /// rows, then the widths. Throws EngineError if the values of a list cannot be read.
    void LayOut(const ViewDefinition& view, clsDatabase& data);
    /// Reads the values of the columns' lists again. Throws EngineError.
    void FillLists(const ViewDefinition& view, clsDatabase& data);
    /// Sets the widths as fractions of the grid's width, and places the totals below their columns.
    /// A width that the user set by hand replaces the column's fraction.
    void SetColWidths(const ViewDefinition& view);

    /// Widths in pixels that the user set by hand, by view and column.
    using HandWidths = std::map<std::int32_t, std::map<std::int32_t, std::int32_t>>;
    [[nodiscard]] const HandWidths& WidthsByHand() const { return handWidths_; }
    /// Limits each width to what a column may have.
    void WidthsByHand(const HandWidths& widths);
    void WidthByHand(std::int32_t view, std::int32_t column, std::int32_t pixels)
    {
        handWidths_[view][column] = pixels;
    }

private:
    void SetColumn(const ViewColumn& column);
    void AddCalculated(const ViewColumn& column);
    void GroupBy(const GroupDefinition& group);
    void FillRest(const ViewDefinition& view, std::int32_t usable);
    void PlaceTotals(const ViewDefinition& view);
    void PlaceBelow(TextBox& box, std::int32_t column, std::int32_t leastWidth);

    const ViewTargets& targets_;
    HandWidths handWidths_;
};

}  // namespace clb
