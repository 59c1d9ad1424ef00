#include "desktop/grid/AccessibleCell.h"

#include "base/RuntimeError.h"
#include "desktop/grid/AccessibleGrid.h"
#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridHeader.h"
#include "desktop/grid/GridView.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

/// A cell that cannot be read has no text.
template <typename Read>
auto Readable(const Read& read) -> decltype(read())
{
    try {
        return read();
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace

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
    if (row_ == 0)
        return HeaderText(kind);
    if (place_ == 0)
        return kind == QAccessible::Name ? table_.rowDescription(rowIndex()) : QString();
    switch (kind) {
        case QAccessible::Name: return Name();
        case QAccessible::Value: return CellText();
        case QAccessible::Description: return Description();
        default: return {};
    }
}

QString AccessibleCell::HeaderText(QAccessible::Text kind) const
{
    if (place_ == 0)
        return {};
    if (kind == QAccessible::Name)
        return ToQString(grid_.Columns().Item(Column()).caption);
    return kind == QAccessible::Description ? view_.Sorting().Text(Column()) : QString();
}

/// A warning that is drawn as a colour is said as a word. The first cell says what its row is,
/// because a reader that reads whole rows passes over their headers.
QString AccessibleCell::Name() const
{
    QStringList parts{CellText()};
    if (!parts.first().isEmpty())
        parts << ToQString(Readable([this] { return grid_.WarningOf(row_, Column()); }));
    else if (place_ == 1 && grid_.Rows().Kind(row_) == GridRowKind::NewRow)
        parts << table_.KindText(row_);
    if (place_ == 1)
        parts << table_.States(row_);
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

/// The cell's tip, the figure beside the row, and what an empty grid says.
QString AccessibleCell::Description() const
{
    QStringList parts{Tip(),
                      ToQString(Readable([this] { return grid_.FigureBeside(row_, Column()); }))};
    if (row_ == grid_.Row() && view_.Empty().isVisible())
        parts << view_.Empty().Words();
    parts.removeAll(QString());
    return parts.join(QStringLiteral(". "));
}

QString AccessibleCell::CellText() const
{
    return ToQString(Readable([this] {
        switch (grid_.Rows().Kind(row_)) {
            case GridRowKind::GroupHeading:
                return place_ == 1 ? grid_.Rows().HeadingText(row_) : std::string();
            case GridRowKind::GroupFooter:
                return place_ == 1 ? grid_.FooterText(row_) : std::string();
            default: return grid_.CellText(row_, Column());
        }
    }));
}

QString AccessibleCell::Tip() const
{
    // Fetching a tip asks the data store, so only the current cell has one.
    if (row_ != grid_.Row() || Column() != grid_.Col())
        return {};
    return ToQString(Readable([this] { return grid_.CellTip(row_, Column()).value_or(""); }));
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
    if (type == QAccessible::ActionInterface && place_ != 0)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

bool AccessibleCell::isSelected() const
{
    return IsCell() && isValid() &&
           (table_.IsMarked(row_) || (row_ == grid_.Row() && Column() == grid_.Col()));
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
    if (row_ == 0)
        return {QAccessibleActionInterface::pressAction()};
    return {QAccessibleActionInterface::setFocusAction(),
            QAccessibleActionInterface::pressAction()};
}

void AccessibleCell::doAction(const QString& name)
{
    if (!isValid() || place_ == 0)
        return;
    const bool press = name == QAccessibleActionInterface::pressAction();
    if (row_ == 0) {
        if (press)
            view_.Sorting().By(Column());
        return;
    }
    if (view_.GoTo(row_, Column()) && press)
        view_.Open();
}

}  // namespace clb
