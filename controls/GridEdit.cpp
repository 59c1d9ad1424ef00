// Editing: the row in edit is a copy that Update writes back.

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "controls/GridComponent.h"

namespace clb {

bool GridComponent::Editable(std::int32_t column) const
{
    if (row_ == 0)
        return false;
    const GridRowKind kind = rows_.Kind(row_);
    const GridColumn& target = columns_.Item(column);
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
    // Handlers see the cell in edit already, so that they can enable commands accordingly.
    editing_ = true;
    editText_ = TextToEdit();
    editTouched_ = false;
    marked_ = false;
    refusal_.clear();
    bool cancel = false;
    beforeEdit_.emit(static_cast<std::int32_t>(row_), col_, key, cancel);
    if (cancel) {
        editing_ = false;
        return false;
    }
    Touch();
    return true;
}

std::string GridComponent::TextToEdit() const
{
    const Value& value = cells_[static_cast<std::size_t>(col_ - 1)];
    const std::string shown = ShownText(value, col_);
    // An amount with fractions of a cent is typed on as it is, not as rounded for the eye.
    const auto* amount = std::get_if<Money>(&value);
    return amount && ToMoney(shown) != *amount ? ToText(value) : shown;
}

void GridComponent::EditText(const std::string& text)
{
    editText_ = text;
    editTouched_ = true;
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
        Value value;
        if (!ReadText(editText_, col_, value, refusal_)) {
            marked_ = true;
            Touch();
            return false;
        }
        ColumnValue(col_, value);
    }
    FinishEdit();
    return true;
}

void GridComponent::CancelEdit()
{
    if (!editing_)
        return;
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
    } else if (dirty_) {
        LoadRow();
        Touch();
        rowRestored_.emit();
    }
}

bool GridComponent::ReadText(const std::string& text, std::int32_t column, Value& value,
                             std::string& why) const
{
    const GridColumn& target = columns_.Item(column);
    const bool listOnly = target.popup && target.popup->type == cell_control::DropDown;
    for (const GridValueItem& item : target.valueItems) {
        if (item.text == text || (listOnly && CompareAlphabetical(item.text, Trim(text)) == 0)) {
            value = item.value;
            return true;
        }
    }
    if (listOnly && !Trim(text).empty()) {
        why = "Please choose an entry of the list.";
        return false;
    }
    if (target.dataType == FieldType::Text) {
        if (target.textWidth != 0 && Length(text) > target.textWidth) {
            why = "Please enter at most " + std::to_string(target.textWidth) + " characters.";
            return false;
        }
        value = listOnly ? std::string() : text;
        return true;
    }
    if (Trim(text).empty()) {
        value = Null{};
        return true;
    }
    if (target.dataType == FieldType::Date) {
        const auto date = dates_.Read(text);
        why = "Please enter a date, for example " + dates_.Format(Date::FromDays(46000)) + ".";
        if (date)
            value = *date;
        return date.has_value();
    }
    try {
        value = Convert(text, target.dataType);
        return true;
    } catch (const RuntimeError& error) {
        why = error.Number() == errors::Overflow ? "This number is too large for the column."
                                                 : "Please enter a number, for example 1,234.50.";
        return false;
    }
}

bool GridComponent::Update()
{
    Freshen();
    if (editing_ && !EndEdit())
        return false;
    if (!dirty_)
        return true;
    bool cancel = false;
    beforeUpdate_.emit(cancel);
    if (cancel) {
        updateRefused_.emit();
        marked_ = true;
        Touch();
        return false;
    }
    SaveRow();
    afterUpdate_.emit();
    return true;
}

void GridComponent::SaveRow()
{
    const bool added = rows_.Kind(row_) == GridRowKind::NewRow;
    std::vector<IGridSource::Change> changes;
    for (std::size_t at = 0; at < cells_.size(); ++at)
        if (changed_[at] && columns_.Item(static_cast<std::int32_t>(at + 1)).updatable)
            changes.emplace_back(at, cells_[at]);
    const std::size_t record =
        source_->Save(added ? source_->Count() : rows_.Record(row_), changes);
    if (added || !groups_.empty())
        NumbersTold();
    rows_.Rebuild();
    row_ = rows_.Reveal(record);
    LoadRow();
    Touch();
}

bool GridComponent::Delete()
{
    Freshen();
    if (row_ == 0 || rows_.Kind(row_) != GridRowKind::Data)
        return false;
    CancelEdit();
    bool cancel = false;
    beforeDelete_.emit(cancel);
    if (cancel)
        return false;
    source_->Delete(rows_.Record(row_));
    NumbersTold();
    rows_.Rebuild();
    const std::size_t row = std::min(row_, rows_.Count());
    StandOn(row, col_);
    afterDelete_.emit();
    if (row_ != 0)
        rowColChange_.emit(static_cast<std::int32_t>(row_), col_);
    return true;
}

}  // namespace clb
