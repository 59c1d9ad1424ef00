// The grid's columns per view, their widths, and the totals line below them.

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "data/clsDatabase.h"
#include "views/clsView.h"

namespace clb {
namespace {

constexpr std::int32_t kPopupWidth = 2000;
constexpr std::int32_t kPopupRows = 5;
/// Three pixels between the totals line's parts.
constexpr std::int32_t kMargin = 3;
/// Room for a balance of nine digits.
constexpr std::int32_t kLeastTotal = 120;
/// What columns made wider by hand leave of the one that takes the rest.
constexpr std::int32_t kLeastRest = 60;
/// No width kept from an earlier start is more.
constexpr std::int32_t kMostByHand = 4000;

struct Fraction {
    std::int32_t column;
    double part;
};

/// What SetColWidths does in one view.
struct Widths {
    std::span<const Fraction> fractions;
    std::int32_t rest;         ///< column that takes what remains; 0: none
    std::int32_t firstTotal;   ///< column above the first amount
    std::int32_t secondTotal;  ///< column above the second; 0: no second amount
};

constexpr std::array<Fraction, 4> kNetWorth{{{1, 0.3}, {2, 0.1}, {3, 0.2}, {4, 0.2}}};
constexpr std::array<Fraction, 4> kBudget{{{1, 0.25}, {2, 0.2}, {7, 0.2}, {8, 0.2}}};
constexpr std::array<Fraction, 3> kAccountType{{{1, 0.4}, {2, 0.2}, {3, 0.2}}};
constexpr std::array<Fraction, 5> kAccount{{{1, 0.12}, {2, 0.3}, {3, 0.1}, {4, 0.1}, {5, 0.1}}};
constexpr std::array<Fraction, 6> kInvestment{
    {{1, 0.1}, {2, 0.3}, {3, 0.1}, {4, 0.1}, {5, 0.1}, {6, 0.1}}};
constexpr std::array<Fraction, 4> kLoan{{{1, 0.4}, {2, 0.16}, {3, 0.16}, {4, 0.1}}};

Widths WidthsOf(std::int32_t view)
{
    switch (view) {
        case vwNetWorth: return {kNetWorth, 5, 4, 5};
        case vwBudget: return {kBudget, 0, 2, 7};
        case vwAccountType: return {kAccountType, 4, 3, 4};
        case vwAccount: return {kAccount, 6, 3, 0};
        case vwInvestment: return {kInvestment, 7, 7, 0};
        case vwLoan: return {kLoan, 7, 7, 0};
        default: return {{}, 0, 0, 0};
    }
}

void SetLeftAndWidth(Control& control, std::int32_t left, std::int32_t width)
{
    Bounds place = control.Place();
    place.left = left;
    place.width = std::max(0, width);
    control.Place(place);
}

}  // namespace

void clsView::Caption(std::int32_t column, const char* caption)
{
    targets_.grid.Columns().Item(column).caption = caption;
}

void clsView::Hide(std::int32_t first, std::int32_t last)
{
    for (std::int32_t column = first; column <= last; ++column)
        targets_.grid.Columns().Item(column).hidden = true;
}

std::int32_t clsView::AddCalculatedColumn()
{
    GridColumn column;
    column.alignment = column.headingAlignment = grid_align::Right;
    column.dataType = FieldType::Double;
    column.fetchCellStyle = true;
    return targets_.grid.Columns().Add(column);
}

void clsView::LayOut()
{
    switch (view_) {
        case vwAccount: LayOutAccount(); break;
        case vwLoan: LayOutLoan(); break;
        case vwInvestment: LayOutInvestment(); break;
        case vwAccountType: LayOutAccountType(); break;
        case vwBudget: LayOutBudget(); break;
        case vwNetWorth: LayOutNetWorth(); break;
        default: break;
    }
    targets_.grid.ShowToolTips(true);
    SetColWidths();
}

void clsView::LayOutAccount()
{
    Caption(1, "Date");
    Caption(2, "Description");
    Caption(3, "Amount");
    Caption(4, "Check #");
    Caption(5, "Category");
    Hide(7, 12);
    targets_.grid.Columns().Item(5).popup =
        GridPopup{cell_control::ComboBox, kPopupRows, kPopupWidth};
    ListCategories();
    targets_.lblTotal.Caption("Balance:");
}

void clsView::ListCategories()
{
    auto& listed = targets_.grid.Columns().Item(5).valueItems;
    listed.clear();
    // The month is taken from the two controls, not from the view's own; settled.
    Recordset categories;
    database_->Fill(categories,
                    "SELECT Category FROM Budget WHERE Budget.Year = " + targets_.txtYear.Text() +
                        " AND Period = " + std::to_string(targets_.cmbPeriod.Index() + 1),
                    true);
    for (; !categories.AtEnd(); categories.MoveNext()) {
        const Value& name = categories.Get("Category");
        listed.push_back({name, ToText(name)});
    }
}

void clsView::LayOutLoan()
{
    const std::int32_t balance = AddCalculatedColumn();
    Caption(1, "Description");
    Caption(2, "Original Amount");
    Caption(3, "Paid Amount");
    Caption(4, "Interest %");
    Caption(balance, "Balance");
    Hide(5, 6);
    targets_.lblTotal.Caption("Total Loans:");
}

void clsView::LayOutInvestment()
{
    Caption(1, "Symbol");
    Caption(2, "Name");
    Caption(3, "Purchase Date");
    Caption(4, "Quantity");
    Caption(5, "Purchase Price");
    Caption(6, "Last Price");
    Caption(7, "Total");
    Hide(8, 9);
    targets_.lblTotal.Caption("Total Investment:");
}

void clsView::LayOutAccountType()
{
    Caption(1, "Description");
    Caption(2, "Account #");
    Caption(3, "Opening Balance");
    Caption(4, "Current Balance");
    targets_.grid.Columns().Item(4).readOnly = true;
    Hide(5, 6);
    targets_.lblTotal.Caption("Totals:");
}

void clsView::LayOutBudget()
{
    constexpr std::int32_t group = 6;
    GridColumns& columns = targets_.grid.Columns();
    const std::int32_t actual = AddCalculatedColumn();
    columns.Position(actual, columns.Position(group));
    const std::int32_t difference = AddCalculatedColumn();
    columns.Position(difference, columns.Position(group));
    Caption(group, "Group");
    Caption(1, "Category");
    Caption(2, "Budgeted");
    Caption(actual, "Actual");
    Caption(difference, "Difference");
    Hide(3, 5);
    targets_.grid.Groups().push_back(
        {group, "GroupingValue & ' (' & TotalChildCount & ' items)'", 4, 3});
    targets_.grid.Styles()["GroupFooter"].backColor = system_color::ButtonFace;
    targets_.grid.Component().Regroup();
    targets_.lblTotal.Caption("Month to date:");
}

void clsView::LayOutNetWorth()
{
    GridColumn& type = targets_.grid.Columns().Item(2);
    type.popup = GridPopup{cell_control::DropDown, kPopupRows, 0};
    for (const char* name : {"Bank", "Cash", "Credit Card", "Investment", "Loan"})
        type.valueItems.push_back({std::string(name), name});
    Caption(1, "Description");
    Caption(2, "Type");
    Caption(3, "Account #");
    Caption(4, "Opening Balance");
    Caption(5, "Current Balance");
    targets_.grid.Columns().Item(5).readOnly = true;
    Hide(6, 6);
    targets_.lblTotal.Caption("Total Net Worth:");
}

void clsView::KeepWidth(std::int32_t column, std::int32_t pixels)
{
    handWidths_[view_][column] = pixels;
    SetColWidths();
}

void clsView::WidthsByHand(const HandWidths& widths)
{
    handWidths_ = widths;
    for (auto& [view, columns] : handWidths_)
        for (auto& [column, pixels] : columns)
            pixels = std::clamp(pixels, GridComponent::LeastWidth, kMostByHand);
    SetColWidths();
}

void clsView::SetColWidths()
{
    const Widths widths = WidthsOf(view_);
    GridColumns& columns = targets_.grid.Columns();
    if (widths.fractions.empty() || columns.Count() == 0)
        return;
    const std::int32_t usable =
        std::max(0, targets_.grid.Width() - grid_metrics::Selector - grid_metrics::ScrollBar);
    for (const Fraction& fraction : widths.fractions)
        columns.Item(fraction.column).width =
            static_cast<std::int32_t>(std::lround(fraction.part * usable));
    const auto& byHand = handWidths_[view_];
    for (const auto& [column, pixels] : byHand)
        if (column >= 1 && column <= columns.Count())
            columns.Item(column).width = pixels;
    if (widths.rest != 0 && !byHand.contains(widths.rest)) {
        std::int32_t taken = 0;
        for (const Fraction& fraction : widths.fractions)
            taken += columns.Item(fraction.column).width;
        const std::int32_t least = byHand.empty() ? 0 : kLeastRest;
        columns.Item(widths.rest).width = std::max(least, usable - taken);
    }
    PlaceTotals(widths.firstTotal, widths.secondTotal);
    targets_.grid.Component().LayoutChanged();
}

std::pair<std::int32_t, std::int32_t> clsView::TotalColumns() const
{
    const Widths widths = WidthsOf(view_);
    return {widths.firstTotal, widths.secondTotal};
}

void clsView::PlaceTotals(std::int32_t first, std::int32_t second)
{
    const GridColumns& columns = targets_.grid.Columns();
    const std::int32_t origin = targets_.grid.Left() + grid_metrics::Selector;
    // A box ends where its column ends; alone below a narrow column it begins further left.
    const std::int32_t least = second == 0 ? kLeastTotal : 0;
    const auto placeBelow = [&](TextBox& box, std::int32_t column) {
        const std::int32_t width = std::max(columns.Item(column).width - kMargin, least);
        const std::int32_t end = origin + columns.Left(column) + columns.Item(column).width;
        // Columns made wider by hand may reach beyond the grid's edge.
        const std::int32_t right =
            std::min(end, targets_.grid.Left() + targets_.grid.Width()) - kMargin;
        SetLeftAndWidth(box, std::max(targets_.grid.Left(), right - width), width);
    };
    placeBelow(targets_.txtTotal, first);
    // Without a second amount its box has no width and so is not seen.
    if (second == 0)
        SetLeftAndWidth(targets_.txtTotal2, targets_.txtTotal.Place().left, 0);
    else
        placeBelow(targets_.txtTotal2, second);
    SetLeftAndWidth(targets_.lblTotal, targets_.grid.Left() + kMargin,
                    targets_.txtTotal.Place().left - targets_.grid.Left() - 2 * kMargin);
}

}  // namespace clb
