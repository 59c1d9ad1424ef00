// Editing: the row in edit is a copy that Update writes back.

#include <algorithm>

#include "controls/GridComponent.h"

namespace clb {

Value GridComponent::ColumnValue(std::int32_t column)
{
    Freshen();
    if (!Columns().Item(column).Calculated())
        return edited_.Cell(column);
    return row_ == 0 ? Value{} : Fetch(row_, column);
}

void GridComponent::ColumnValue(std::int32_t column, const Value& value)
{
    Freshen();
    const GridColumn& target = Columns().Item(column);
    if (row_ == 0 || target.Calculated())
        return;
    edited_.Write(column, Convert(value, target.dataType));
    Touch();
}

Value GridComponent::CellValue(std::size_t row, std::int32_t column)
{
    Freshen();
    return row == row_ ? GridComponent::ColumnValue(column) : GridContent::CellValue(row, column);
}

bool GridComponent::Editable(std::int32_t column) const
{
    if (row_ == 0)
        return false;
    const GridRowKind kind = Rows().Kind(row_);
    const GridColumn& target = Columns().Item(column);
    return (kind == GridRowKind::Data || kind == GridRowKind::NewRow) && target.updatable &&
           !target.readOnly && !target.hidden;
}

bool GridComponent::Editing(bool edit)
{
    return edit ? Editing() || BeginEdit(0) : EndEdit();
}

bool GridComponent::BeginEdit(std::int16_t key)
{
    focusWanted_.emit();
    Freshen();
    if (Editing())
        return true;
    if (!Editable(col_))
        return false;
    // Handlers already see the cell in edit, so that they can enable commands accordingly.
    entry_.Open(col_, edited_.Cell(col_));
    if (!MayEdit(static_cast<std::int32_t>(row_), col_, key)) {
        entry_.Close();
        return false;
    }
    if (Rows().Kind(row_) == GridRowKind::NewRow && IsNull(edited_.Cell(col_)))
        entry_.OfferDate();
    Touch();
    return true;
}

void GridComponent::EditText(const std::string& text)
{
    if (entry_.Text(text))
        Touch();
}

bool GridComponent::EndEdit()
{
    if (!Editing())
        return true;
    if (entry_.Touched()) {
        const std::optional<Value> typed = entry_.Read();
        if (!typed) {
            Touch();
            return false;
        }
        ColumnValue(col_, *typed);
    }
    FinishEdit();
    return true;
}

void GridComponent::CancelEdit()
{
    if (Editing())
        FinishEdit();
}

void GridComponent::FinishEdit()
{
    entry_.Close();
    Touch();
    afterEdit_.emit(static_cast<std::int32_t>(row_), col_);
}

void GridComponent::Escape()
{
    if (Editing()) {
        CancelEdit();
    } else if (Dirty()) {
        LoadRow();
        Touch();
        rowRestored_.emit();
    }
}

bool GridComponent::Update()
{
    Freshen();
    if (!EndEdit())
        return false;
    if (const std::int32_t offered = entry_.OfferedColumn();
        offered != 0 && edited_.OnlyTyped(offered))
        LoadRow();
    if (!Dirty())
        return true;
    if (!MayUpdate()) {
        updateRefused_.emit();
        entry_.Mark();
        Touch();
        return false;
    }
    const bool added = SaveRow();
    afterUpdate_.emit();
    if (added)
        ShowAdded();
    return true;
}

void GridComponent::ShowAdded()
{
    if (placesNewRows_ && Source()) {
        RequeryOrUnbind();
        Freshen();
        Touch();
    }
    rowAdded_.emit(row_);
}

bool GridComponent::SaveRow()
{
    GridRows& rows = BoundRows();
    const bool added = rows.Kind(row_) == GridRowKind::NewRow;
    const std::size_t record =
        Source()->Save(added ? Source()->Count() : rows.Record(row_), edited_.Changes(Columns()));
    if (added || !Groups().empty())
        NumbersReported();
    {
        const NoRow none(row_);
        rows.Rebuild();
    }
    row_ = rows.Reveal(record);
    LoadRow();
    Touch();
    return added;
}

bool GridComponent::Delete()
{
    Freshen();
    if (row_ == 0 || BoundRows().Kind(row_) != GridRowKind::Data)
        return false;
    CancelEdit();
    if (!MayDelete())
        return false;
    Source()->Delete(BoundRows().Record(row_));
    marks_.Clear();
    TakeRows();
    StandOn(row_, col_);
    afterDelete_.emit();
    if (row_ != 0)
        ReportPlace();
    return true;
}

}  // namespace clb
