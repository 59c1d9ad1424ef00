#include "desktop/grid/GridSorting.h"

#include <QKeyEvent>

#include "controls/GridComponent.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

void GridSorting::By(std::int32_t column)
{
    const GridSort now = grid_.Rows().Sort();
    GridSort next{column, false};
    if (now.column == column)
        next = now.descending ? GridSort() : GridSort{column, true};
    events_.Run([&] { grid_.SortBy(next); });
    const std::int32_t sorted = grid_.Rows().Sort().column;
    done_(sorted == 0 ? QStringLiteral("Usual order")
                      : ToQString(grid_.Columns().Item(sorted).caption) + QStringLiteral(": ") +
                            Text(sorted));
}

bool GridSorting::ByKey(const QKeyEvent& event)
{
    if (event.modifiers() != (Qt::ControlModifier | Qt::ShiftModifier) ||
        event.key() != Qt::Key_S || grid_.Row() == 0)
        return false;
    By(grid_.Col());
    return true;
}

QString GridSorting::Text(std::int32_t column) const
{
    const GridSort sort = grid_.Rows().Sort();
    if (sort.column != column)
        return {};
    return sort.descending ? QStringLiteral("sorted, descending")
                           : QStringLiteral("sorted, ascending");
}

}  // namespace clb
