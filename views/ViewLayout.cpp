#include "views/ViewLayout.h"

#include <algorithm>
#include <cmath>

#include "data/clsDatabase.h"

namespace clb {
namespace {

/// Three pixels between the parts of the totals line.
constexpr std::int32_t kMargin = 3;
/// Room for a balance of nine digits.
constexpr std::int32_t kLeastTotal = 120;
/// The least width of the column that takes the rest, once others were made wider by hand.
constexpr std::int32_t kLeastRest = 60;
/// Limit for a width that was kept from an earlier start.
constexpr std::int32_t kMostByHand = 4000;

// Kinds of heading and footer of a group; see GridGroup.
constexpr std::int32_t kHeadingAndFooter = 4;
constexpr std::int32_t kFooterFetched = 3;

void SetLeftAndWidth(Control& control, std::int32_t left, std::int32_t width)
{
    Bounds place = control.Place();
    place.left = left;
    place.width = std::max(0, width);
    control.Place(place);
}

}  // namespace

void ViewLayout::LayOut(const ViewDefinition& view, clsDatabase& data)
{
    for (const ViewColumn& column : view.columns)
        SetColumn(column);
    if (view.group)
        GroupBy(*view.group);
    FillLists(view, data);
    if (view.totalLabel)
        targets_.lblTotal.Caption(view.totalLabel);
    targets_.grid.ShowToolTips(true);
    SetColWidths(view);
}

void ViewLayout::SetColumn(const ViewColumn& column)
{
    if (column.calculated)
        AddCalculated(column);
    GridColumn& shown = targets_.grid.Columns().Item(column.column);
    if (column.caption)
        shown.caption = column.caption;
    shown.hidden = column.hidden;
    shown.readOnly = column.readOnly;
    if (column.list)
        shown.popup = column.list->popup;
}

void ViewLayout::AddCalculated(const ViewColumn& column)
{
    GridColumn added;
    added.alignment = added.headingAlignment = grid_align::kRight;
    added.dataType = FieldType::Double;
    added.fetchCellStyle = true;
    GridColumns& columns = targets_.grid.Columns();
    const std::int32_t number = columns.Add(added);
    if (column.before != 0)
        columns.Position(number, columns.Position(column.before));
}

void ViewLayout::GroupBy(const GroupDefinition& group)
{
    targets_.grid.Groups().push_back(
        {group.column, group.heading, kHeadingAndFooter, kFooterFetched});
    targets_.grid.Styles()["GroupFooter"].backColor = system_color::kButtonFace;
    targets_.grid.Regroup();
}

void ViewLayout::FillLists(const ViewDefinition& view, clsDatabase& data)
{
    // The month is that of the two controls, not the view's own.
    const ShownMonth month{targets_.txtYear.Text(), targets_.cmbPeriod.Index() + 1};
    for (const ViewColumn& column : view.columns)
        if (column.list)
            targets_.grid.Columns().Item(column.column).valueItems =
                column.list->values(data, month);
}

void ViewLayout::WidthsByHand(const HandWidths& widths)
{
    handWidths_ = widths;
    for (auto& [view, columns] : handWidths_)
        for (auto& [column, pixels] : columns)
            pixels = std::clamp(pixels, GridComponent::kLeastWidth, kMostByHand);
}

void ViewLayout::SetColWidths(const ViewDefinition& view)
{
    GridColumns& columns = targets_.grid.Columns();
    if (view.columns.empty() || columns.Count() == 0)
        return;
    const std::int32_t usable =
        std::max(0, targets_.grid.Width() - grid_metrics::kSelector - grid_metrics::kScrollBar);
    for (const ViewColumn& column : view.columns) {
        GridColumn& shown = columns.Item(column.column);
        shown.byHand = false;
        if (column.part > 0)
            shown.width = static_cast<std::int32_t>(std::lround(column.part * usable));
    }
    for (const auto& [column, pixels] : handWidths_[view.view])
        if (column >= 1 && column <= columns.Count()) {
            columns.Item(column).width = pixels;
            columns.Item(column).byHand = true;
        }
    FillRest(view, usable);
    PlaceTotals(view);
    targets_.grid.LayoutChanged();
}

void ViewLayout::FillRest(const ViewDefinition& view, std::int32_t usable)
{
    GridColumns& columns = targets_.grid.Columns();
    const auto& byHand = handWidths_[view.view];
    std::int32_t taken = 0;
    for (const ViewColumn& column : view.columns)
        if (column.part > 0)
            taken += columns.Item(column.column).width;
    for (const ViewColumn& column : view.columns)
        if (column.fillsRest && !byHand.contains(column.column))
            columns.Item(column.column).width =
                std::max(byHand.empty() ? 0 : kLeastRest, usable - taken);
}

void ViewLayout::PlaceBelow(TextBox& box, std::int32_t column, std::int32_t leastWidth)
{
    const CVGrid& grid = targets_.grid;
    const GridColumns& columns = grid.Columns();
    const std::int32_t width = std::max(columns.Item(column).width - kMargin, leastWidth);
    const std::int32_t end =
        grid.Left() + grid_metrics::kSelector + columns.Left(column) + columns.Item(column).width;
    // Columns that were made wider by hand may reach beyond the grid's edge.
    const std::int32_t right = std::min(end, grid.Left() + grid.Width()) - kMargin;
    SetLeftAndWidth(box, std::max(grid.Left(), right - width), width);
}

void ViewLayout::PlaceTotals(const ViewDefinition& view)
{
    // A box ends where its column ends. Alone below a narrow column it begins further to the left.
    const bool alone = view.secondTotal == 0;
    PlaceBelow(targets_.txtTotal, view.firstTotal, alone ? kLeastTotal : 0);
    // Without a width the second box is not seen.
    if (alone)
        SetLeftAndWidth(targets_.txtTotal2, targets_.txtTotal.Place().left, 0);
    else
        PlaceBelow(targets_.txtTotal2, view.secondTotal, 0);
    SetLeftAndWidth(targets_.lblTotal, targets_.grid.Left() + kMargin,
                    targets_.txtTotal.Place().left - targets_.grid.Left() - 2 * kMargin);
}

}  // namespace clb
