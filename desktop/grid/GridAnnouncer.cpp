#include "desktop/grid/GridAnnouncer.h"

#include <QAccessible>

#include "controls/GridComponent.h"
#include "desktop/grid/AccessibleGrid.h"
#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

void GridAnnouncer::Drawn(std::size_t rows, std::size_t columns, bool moved)
{
    const bool others = rows_ != rows || columns_ != columns;
    rows_ = rows;
    columns_ = columns;
    if (others)
        RowsChanged();
    else if (moved)
        FocusMoved();
}

void GridAnnouncer::RowsChanged()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTableModelChangeEvent rows(&view_, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&rows);
    FocusMoved();
}

void GridAnnouncer::FocusMoved()
{
    const std::size_t place = view_.Layout().PlaceOf(grid_.Col());
    if (!QAccessible::isActive() || !view_.hasFocus() || view_.Editor().IsOpen() ||
        grid_.Row() == 0 || place == 0)
        return;
    QAccessibleEvent focus(&view_, QAccessible::Focus);
    focus.setChild(AccessibleGrid::ChildOf(view_, grid_.Row(), place));
    QAccessible::updateAccessibility(&focus);
}

void GridAnnouncer::ValueChanged(std::int32_t column)
{
    const std::size_t place = view_.Layout().PlaceOf(column);
    if (!QAccessible::isActive() || grid_.Row() == 0 || place == 0)
        return;
    events_.Run([&] {
        QAccessibleValueChangeEvent value(&view_, ToQString(grid_.CellText(grid_.Row(), column)));
        value.setChild(AccessibleGrid::ChildOf(view_, grid_.Row(), place));
        QAccessible::updateAccessibility(&value);
    });
}

}  // namespace clb
