#include "desktop/grid/AccessibleGrid.h"

#include <QLineEdit>

#include "desktop/grid/AccessibleCell.h"
#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridHeader.h"
#include "desktop/grid/GridView.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

QAccessibleInterface* Make(const QString& /*className*/, QObject* object)
{
    auto* view = dynamic_cast<GridView*>(object);
    return view ? view->MakeAccessible() : nullptr;
}

int Across(const GridView& view)
{
    return static_cast<int>(view.Layout().Spans().size()) + 1;
}

int Cells(const GridView& view)
{
    return (static_cast<int>(view.Layout().RowCount()) + 1) * Across(view);
}

}  // namespace

void AccessibleGrid::Install()
{
    QAccessible::installFactory(Make);
}

int AccessibleGrid::ChildOf(const GridView& view, std::size_t row, std::size_t place)
{
    return static_cast<int>(row) * Across(view) + static_cast<int>(place);
}

AccessibleGrid::AccessibleGrid(GridView& view, GridComponent& grid)
    : QAccessibleWidget(&view, QAccessible::Table), view_(view), grid_(grid)
{
}

AccessibleGrid::~AccessibleGrid()
{
    Forget();
}

void AccessibleGrid::Forget()
{
    for (const auto& [index, id] : cells_)
        QAccessible::deleteAccessibleInterface(id);
    cells_.clear();
}

void* AccessibleGrid::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleGrid::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Description && view_.Empty().isVisible())
        return view_.Empty().Words();
    return QAccessibleWidget::text(kind);
}

int AccessibleGrid::childCount() const
{
    return Cells(view_) + 1;
}

QAccessibleInterface* AccessibleGrid::child(int index) const
{
    if (index < 0 || index > Cells(view_))
        return nullptr;
    if (index == Cells(view_))
        return QAccessible::queryAccessibleInterface(view_.viewport());
    const auto known = cells_.find(index);
    if (known != cells_.end())
        return QAccessible::accessibleInterface(known->second);
    auto* cell =
        new AccessibleCell(*this, view_, grid_, static_cast<std::size_t>(index / Across(view_)),
                           static_cast<std::size_t>(index % Across(view_)));
    cells_[index] = QAccessible::registerAccessibleInterface(cell);
    return cell;
}

int AccessibleGrid::indexOfChild(const QAccessibleInterface* child) const
{
    if (const auto* cell = dynamic_cast<const AccessibleCell*>(child))
        return ChildOf(view_, cell->Row(), cell->Place());
    return child && child->object() == view_.viewport() ? Cells(view_) : -1;
}

QAccessibleInterface* AccessibleGrid::childAt(int x, int y) const
{
    const QPoint place = view_.viewport()->mapFromGlobal(QPoint(x, y));
    if (view_.Empty().isVisible() && view_.Empty().geometry().contains(place))
        return child(Cells(view_));
    const std::int32_t column = view_.Layout().ColumnAt(place.x());
    const std::size_t row = place.y() < 0 ? 0 : view_.Layout().RowAt(place.y());
    if (!view_.rect().contains(view_.mapFromGlobal(QPoint(x, y))) || (place.y() >= 0 && row == 0))
        return nullptr;
    const std::size_t at = view_.Layout().PlaceOf(column);
    return child(ChildOf(view_, row, at));
}

QAccessibleInterface* AccessibleGrid::focusChild() const
{
    if (view_.Editor().IsOpen())
        return QAccessible::queryAccessibleInterface(&view_.Editor().Line());
    if (!view_.hasFocus() || grid_.Row() == 0)
        return nullptr;
    return child(ChildOf(view_, grid_.Row(), view_.Layout().PlaceOf(grid_.Col())));
}

QAccessibleInterface* AccessibleGrid::cellAt(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount())
        return nullptr;
    return child(
        ChildOf(view_, static_cast<std::size_t>(row) + 1, static_cast<std::size_t>(column) + 1));
}

int AccessibleGrid::columnCount() const
{
    return Across(view_) - 1;
}

int AccessibleGrid::rowCount() const
{
    return static_cast<int>(view_.Layout().RowCount());
}

QString AccessibleGrid::columnDescription(int column) const
{
    if (column < 0 || column >= columnCount())
        return {};
    const auto& span = view_.Layout().Spans()[static_cast<std::size_t>(column)];
    return ToQString(grid_.Columns().Item(span.column).caption);
}

QString AccessibleGrid::rowDescription(int row) const
{
    if (row < 0 || row >= rowCount())
        return {};
    const auto at = static_cast<std::size_t>(row) + 1;
    return (QStringList{KindText(at)} + States(at)).join(QStringLiteral(", "));
}

QStringList AccessibleGrid::States(std::size_t row) const
{
    QStringList states;
    if (grid_.IsUnseen(row))
        states << QStringLiteral("new");
    if (IsMarked(row))
        states << QStringLiteral("marked");
    if (row == grid_.Row() && grid_.Dirty())
        states << QStringLiteral("changed");
    return states;
}

QString AccessibleGrid::KindText(std::size_t row) const
{
    switch (grid_.Rows().Kind(row)) {
        case GridRowKind::GroupHeading: return QStringLiteral("Group");
        case GridRowKind::GroupFooter: return QStringLiteral("Sum of the group");
        case GridRowKind::NewRow: return QStringLiteral("New row");
        default: return QStringLiteral("Row %1").arg(row);
    }
}

bool AccessibleGrid::IsMarked(std::size_t row) const
{
    return grid_.Marks().Contains(grid_.Rows().Identity(row));
}

int AccessibleGrid::selectedCellCount() const
{
    return static_cast<int>(selectedCells().size());
}

/// The current cell, or the cells of all marked rows.
QList<QAccessibleInterface*> AccessibleGrid::selectedCells() const
{
    QList<QAccessibleInterface*> cells;
    if (grid_.Marks().Count() == 0) {
        if (grid_.Row() != 0)
            cells << child(ChildOf(view_, grid_.Row(), view_.Layout().PlaceOf(grid_.Col())));
        return cells;
    }
    for (const int row : selectedRows())
        for (int column = 0; column < columnCount(); ++column)
            cells << cellAt(row, column);
    return cells;
}

int AccessibleGrid::selectedRowCount() const
{
    return static_cast<int>(selectedRows().size());
}

QList<int> AccessibleGrid::selectedRows() const
{
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row)
        if (isRowSelected(row))
            rows << row;
    return rows;
}

bool AccessibleGrid::isRowSelected(int row) const
{
    const std::size_t at = static_cast<std::size_t>(row) + 1;
    return row >= 0 && row < rowCount() &&
           (grid_.Marks().Count() == 0 ? at == grid_.Row() : IsMarked(at));
}

bool AccessibleGrid::selectRow(int row)
{
    return row >= 0 && row < rowCount() &&
           view_.GoTo(static_cast<std::size_t>(row) + 1, grid_.Col());
}

void AccessibleGrid::modelChange(QAccessibleTableModelChangeEvent* /*event*/)
{
    Forget();
}

QAccessibleInterface* AccessibleGrid::Header(std::size_t place) const
{
    return child(ChildOf(view_, 0, place));
}

QAccessibleInterface* AccessibleGrid::RowHeader(std::size_t row) const
{
    return child(ChildOf(view_, row, 0));
}

}  // namespace clb
