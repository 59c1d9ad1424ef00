// What the grid tells screen readers.
#include <QAccessible>
#include <algorithm>

#include "desktop/grid/AccessibleGrid.h"
#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

std::size_t GridView::PlaceOf(std::int32_t column) const
{
    const auto& spans = layout_.Spans();
    const auto found = std::find_if(spans.begin(), spans.end(),
                                    [column](const auto& span) { return span.column == column; });
    return found == spans.end() ? 0 : static_cast<std::size_t>(found - spans.begin()) + 1;
}

bool GridView::GoTo(std::size_t row, std::int32_t column)
{
    bool there = false;
    events_.Run([&] { there = takeFocus_() && MoveToShown(row, column); });
    return there;
}

void GridView::Open()
{
    if (OnHeading(grid_.Row()))
        events_.Run([&] { ToggleFold(grid_.Row()); });
    else
        BeginEdit();
}

void GridView::TellRows()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTableModelChangeEvent rows(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&rows);
    TellFocus();
}

void GridView::TellFocus()
{
    const std::size_t place = PlaceOf(grid_.Col());
    if (!QAccessible::isActive() || !hasFocus() || editor_->IsOpen() || grid_.Row() == 0 ||
        place == 0)
        return;
    QAccessibleEvent focus(this, QAccessible::Focus);
    focus.setChild(AccessibleGrid::ChildOf(*this, grid_.Row(), place));
    QAccessible::updateAccessibility(&focus);
}

void GridView::TellValue(std::int32_t column)
{
    const std::size_t place = PlaceOf(column);
    if (!QAccessible::isActive() || grid_.Row() == 0 || place == 0)
        return;
    events_.Run([&] {
        QAccessibleValueChangeEvent value(this, ToQString(grid_.CellText(grid_.Row(), column)));
        value.setChild(AccessibleGrid::ChildOf(*this, grid_.Row(), place));
        QAccessible::updateAccessibility(&value);
    });
}

}  // namespace clb
