#include "desktop/grid/AccessibleCell.h"

#include "base/RuntimeError.h"
#include "desktop/grid/AccessibleGrid.h"
#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridHeader.h"
#include "desktop/grid/GridView.h"
#include "desktop/look/TextConvert.h"

namespace clb {

std::int32_t AccessibleCell::Column() const
{
    return view_.Layout().Spans()[place_ - 1].column;
}

bool AccessibleCell::isValid() const
{
    return row_ <= view_.Layout().RowCount() && place_ <= view_.Layout().Spans().size() &&
           row_ <= grid_.Rows().Count();
}

QWindow* AccessibleCell::window() const
{
    return parent()->window();
}

QAccessibleInterface* AccessibleCell::parent() const
{
    return QAccessible::queryAccessibleInterface(&view_);
}

QString AccessibleCell::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    const bool name = kind == QAccessible::Name;
    if (row_ == 0)
        return name && place_ != 0 ? ToQString(grid_.Columns().Item(Column()).caption) : QString();
    if (place_ == 0)
        return name ? table_.rowDescription(rowIndex()) : QString();
    switch (kind) {
        case QAccessible::Name:
        case QAccessible::Value: return CellText();
        case QAccessible::Description: return Tip();
        default: return {};
    }
}

QString AccessibleCell::CellText() const
{
    try {
        switch (grid_.Rows().Kind(row_)) {
            case GridRowKind::GroupHeading:
                return place_ == 1 ? ToQString(grid_.Rows().HeadingText(row_)) : QString();
            case GridRowKind::GroupFooter:
                return place_ == 1 ? ToQString(grid_.FooterText(row_)) : QString();
            default: return ToQString(grid_.CellText(row_, Column()));
        }
    } catch (const RuntimeError&) {
        return {};
    }
}

QString AccessibleCell::Tip() const
{
    // Fetching a tip asks the data store, so only the current cell has one.
    if (row_ != grid_.Row() || Column() != grid_.Col())
        return {};
    try {
        return ToQString(grid_.CellTip(row_, Column()).value_or(""));
    } catch (const RuntimeError&) {
        return {};
    }
}

QRect AccessibleCell::rect() const
{
    if (!isValid())
        return {};
    const GridLayout& layout = view_.Layout();
    const QWidget& header = view_.Header();
    if (row_ == 0) {
        QRect place = place_ == 0 ? QRect(0, 0, layout.SelectorWidth(), 0)
                                  : layout.CellRect(1, layout.Spans()[place_ - 1]);
        place.setTop(0);
        place.setHeight(header.height());
        return place.translated(header.mapToGlobal(QPoint()));
    }
    const QRect place =
        place_ == 0 ? layout.SelectorRect(row_) : layout.CellRect(row_, layout.Spans()[place_ - 1]);
    return place.translated(view_.viewport()->mapToGlobal(QPoint()));
}

QAccessible::Role AccessibleCell::role() const
{
    if (row_ == 0)
        return place_ == 0 ? QAccessible::Pane : QAccessible::ColumnHeader;
    return place_ == 0 ? QAccessible::RowHeader : QAccessible::Cell;
}

QAccessible::State AccessibleCell::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid || !IsCell())
        return state;
    const bool current = row_ == grid_.Row() && Column() == grid_.Col();
    state.focusable = state.selectable = true;
    state.selected = isSelected();
    state.focused = state.active = current && view_.hasFocus();
    const GridColumn& column = grid_.Columns().Item(Column());
    const GridRowKind kind = grid_.Rows().Kind(row_);
    const bool group = kind == GridRowKind::GroupHeading || kind == GridRowKind::GroupFooter;
    state.editable = !group && !column.readOnly && !column.Calculated();
    state.readOnly = !state.editable;
    AddFolding(state);
    const QRect place = view_.Layout().CellRect(row_, Column());
    state.invisible = state.offscreen = !place.intersects(view_.viewport()->rect());
    return state;
}

void AccessibleCell::AddFolding(QAccessible::State& state) const
{
    const GridRows& rows = grid_.Rows();
    if (rows.Kind(row_) != GridRowKind::GroupHeading)
        return;
    state.expandable = true;
    state.collapsed = rows.Folded(row_);
    state.expanded = !state.collapsed;
}

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface && IsCell())
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

bool AccessibleCell::isSelected() const
{
    return IsCell() && isValid() && row_ == grid_.Row() && Column() == grid_.Col();
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const
{
    return {table_.Header(place_)};
}

QList<QAccessibleInterface*> AccessibleCell::rowHeaderCells() const
{
    return {table_.RowHeader(row_)};
}

QStringList AccessibleCell::actionNames() const
{
    return {QAccessibleActionInterface::setFocusAction(),
            QAccessibleActionInterface::pressAction()};
}

void AccessibleCell::doAction(const QString& name)
{
    if (!isValid() || !IsCell() || !view_.GoTo(row_, Column()))
        return;
    if (name == QAccessibleActionInterface::pressAction())
        view_.Open();
}

}  // namespace clb
