#include "desktop/grid/GridAnnouncer.h"

#include <QAccessible>

#include "controls/GridComponent.h"
#include "desktop/grid/AccessibleGrid.h"
#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Announcement.h"
#include "desktop/look/TextConvert.h"

namespace clb {

GridAnnouncer::GridAnnouncer(GridView& view, GridComponent& grid, UserEvents& events)
    : view_(view), grid_(grid), events_(events)
{
    grid_.Marks().Changed().connect(sigc::track_obj([this] { MarksChanged(); }, *this));
}

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

void GridAnnouncer::MarksChanged()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent marks(&view_, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&marks);
}

void GridAnnouncer::HintShown()
{
    if (!view_.hasFocus())
        return hint_.clear();
    const QString words = view_.Empty().isVisible() ? view_.Empty().Words() : QString();
    if (words == hint_)
        return;
    hint_ = words;
    Announce(view_, words);
}

void GridAnnouncer::FocusCame()
{
    if (!QAccessible::isActive())
        return;
    // The toolkit reports the grid itself afterwards, and the last report counts.
    QMetaObject::invokeMethod(
        &view_,
        [this] {
            FocusMoved();
            HintShown();
        },
        Qt::QueuedConnection);
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
