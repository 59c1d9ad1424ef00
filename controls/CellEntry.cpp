#include "controls/CellEntry.h"

#include <utility>
#include <variant>

namespace clb {

Date CellEntry::Today() const
{
    return Date::FromDays(dates_.context().today.Days());
}

void CellEntry::Open(std::int32_t column, const Value& value)
{
    Close();
    open_ = true;
    column_ = column;
    text_ = texts_.ToEdit(value, columns_.Item(column));
}

void CellEntry::OfferDate()
{
    const GridColumn& column = columns_.Item(column_);
    if (!dates_.offered || column.dataType != FieldType::Date)
        return;
    text_ = texts_.ToEdit(lastDate_.value_or(Today()), column);
    touched_ = true;
    offered_ = column_;
}

void CellEntry::Close()
{
    open_ = false;
    touched_ = false;
    marked_ = false;
    refusal_.clear();
}

bool CellEntry::Text(const std::string& text)
{
    text_ = text;
    touched_ = true;
    if (column_ == offered_)
        offered_ = 0;
    refusal_.clear();
    return std::exchange(marked_, false);
}

std::optional<Date> CellEntry::TypedDate() const
{
    return texts_.ReadDate(text_, dates_.context());
}

std::string CellEntry::Understood() const
{
    if (!open_ || !touched_ || marked_)
        return {};
    return texts_.Understood(text_, columns_.Item(column_), dates_.context());
}

std::optional<Value> CellEntry::Read()
{
    GridText::Reading read = texts_.Read(text_, columns_.Item(column_), dates_.context());
    refusal_ = read.refusal;
    marked_ = !read.value;
    if (const auto* date = read.value ? std::get_if<Date>(&*read.value) : nullptr;
        date && offered_ != column_)
        lastDate_ = *date;
    return std::move(read.value);
}

}  // namespace clb
