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
    if (!edit)
        return !editing_ || EndEdit();
    return editing_ || BeginEdit(0);
}

bool GridComponent::BeginEdit(std::int16_t key)
{
    focusWanted_.emit();
    Freshen();
    if (editing_)
        return true;
    if (!Editable(col_))
        return false;
    // Handlers already see the cell in edit, so that they can enable commands accordingly.
    editing_ = true;
    editText_ = Texts().ToEdit(edited_.Cell(col_), Columns().Item(col_));
    editTouched_ = false;
    marked_ = false;
    refusal_.clear();
    bool cancel = false;
    beforeEdit_.emit(static_cast<std::int32_t>(row_), col_, key, cancel);
    if (cancel) {
        editing_ = false;
        return false;
    }
    OfferDate();
    Touch();
    return true;
}

void GridComponent::TypeDates(std::function<DateContext()> context, bool offer)
{
    dateContext_ = std::move(context);
    offersDates_ = offer;
}

void GridComponent::OfferDate()
{
    const GridColumn& column = Columns().Item(col_);
    if (!offersDates_ || column.dataType != FieldType::Date || !IsNull(edited_.Cell(col_)) ||
        Rows().Kind(row_) != GridRowKind::NewRow)
        return;
    editText_ = Texts().ToEdit(lastDate_.value_or(Today()), column);
    editTouched_ = true;
    offeredColumn_ = col_;
}

bool GridComponent::OnlyOffered() const
{
    return offeredColumn_ != 0 && edited_.OnlyTyped(offeredColumn_);
}

std::optional<Date> GridComponent::TypedDate() const
{
    return Texts().ReadDate(editText_, dateContext_());
}

std::string GridComponent::Understood() const
{
    if (!editing_ || !editTouched_ || marked_)
        return {};
    return Texts().Understood(editText_, Columns().Item(col_), dateContext_());
}

void GridComponent::EditText(const std::string& text)
{
    editText_ = text;
    editTouched_ = true;
    if (col_ == offeredColumn_)
        offeredColumn_ = 0;
    if (!marked_)
        return;
    marked_ = false;
    refusal_.clear();
    Touch();
}

bool GridComponent::EndEdit()
{
    if (!editing_)
        return true;
    if (editTouched_) {
        const GridText::Reading typed =
            Texts().Read(editText_, Columns().Item(col_), dateContext_());
        refusal_ = typed.refusal;
        if (!typed.value) {
            marked_ = true;
            Touch();
            return false;
        }
        ColumnValue(col_, *typed.value);
        if (const auto* date = std::get_if<Date>(&*typed.value); date && offeredColumn_ != col_)
            lastDate_ = *date;
    }
    FinishEdit();
    return true;
}

void GridComponent::CancelEdit()
{
    if (editing_)
        FinishEdit();
}

void GridComponent::FinishEdit()
{
    editing_ = false;
    editTouched_ = false;
    refusal_.clear();
    Touch();
    afterEdit_.emit(static_cast<std::int32_t>(row_), col_);
}

void GridComponent::Escape()
{
    if (editing_) {
        CancelEdit();
    } else if (Dirty()) {
        LoadRow();
        Touch();
        rowRestored_.emit();
    }
}

bool GridComponent::MayUpdate()
{
    bool cancel = false;
    beforeUpdate_.emit(cancel);
    return !cancel;
}

bool GridComponent::Update()
{
    Freshen();
    if (editing_ && !EndEdit())
        return false;
    if (OnlyOffered())
        LoadRow();
    if (!Dirty())
        return true;
    if (!MayUpdate()) {
        updateRefused_.emit();
        marked_ = true;
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
    bool cancel = false;
    beforeDelete_.emit(cancel);
    if (cancel)
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
