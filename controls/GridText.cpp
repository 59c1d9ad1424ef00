#include "controls/GridText.h"

#include <cmath>

#include "base/Numeric.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace clb {
namespace {

/// An amount can hold any number up to this one.
constexpr double kMostAmount = 9e14;

std::string Grouped(double amount)
{
    return std::abs(amount) > kMostAmount ? Numeric::Grouped(amount, 2)
                                          : Money::FromDouble(amount).Grouped();
}

/// Whether only the entries of the column's list may be entered.
bool ListOnly(const GridColumn& column)
{
    return column.popup && column.popup->type == cell_control::kDropDown;
}

const GridValueItem* Listed(const std::string& text, const GridColumn& column)
{
    for (const GridValueItem& item : column.valueItems)
        if (item.text == text ||
            (ListOnly(column) && CompareAlphabetical(item.text, Trim(text)) == 0))
            return &item;
    return nullptr;
}

GridText::Reading ReadText(const std::string& text, const GridColumn& column)
{
    if (column.textWidth != 0 && Length(text) > column.textWidth)
        return {std::nullopt,
                "Please enter at most " + std::to_string(column.textWidth) + " characters."};
    return {ListOnly(column) ? std::string() : text, {}};
}

GridText::Reading ReadNumber(const std::string& text, FieldType type)
{
    try {
        return {Convert(text, type), {}};
    } catch (const RuntimeError& error) {
        return {std::nullopt, error.Number() == errors::Overflow
                                  ? "This number is too large for the column."
                                  : "Please enter a number, for example 1,234.50."};
    }
}

}  // namespace

std::string GridText::Shown(const Value& value, const GridColumn& column) const
{
    if (IsEmpty(value))
        return {};
    if (const auto* money = std::get_if<Money>(&value))
        return money->Grouped();
    if (const auto* date = std::get_if<Date>(&value))
        return dates_.Format(*date);
    if (const auto* number = std::get_if<double>(&value); number && column.Calculated())
        return Grouped(*number);
    for (const GridValueItem& item : column.valueItems)
        if (item.value == value)
            return item.text;
    return ToText(value);
}

std::string GridText::ToEdit(const Value& value, const GridColumn& column) const
{
    const std::string shown = Shown(value, column);
    const auto* amount = std::get_if<Money>(&value);
    return amount && ToMoney(shown) != *amount ? ToText(value) : shown;
}

GridText::Reading GridText::Read(const std::string& text, const GridColumn& column,
                                 const DateContext& context) const
{
    if (const GridValueItem* item = Listed(text, column))
        return {item->value, {}};
    const bool blank = Trim(text).empty();
    if (ListOnly(column) && !blank)
        return {std::nullopt, "Please choose an entry of the list."};
    if (column.dataType == FieldType::Text)
        return ReadText(text, column);
    if (blank)
        return {Null{}, {}};
    switch (column.dataType) {
        case FieldType::Date: return ReadDay(text, context);
        case FieldType::Money:
        case FieldType::Double:
        case FieldType::Single: return ReadAmount(text, column.dataType);
        default: return ReadNumber(text, column.dataType);
    }
}

std::optional<Date> GridText::ReadDate(const std::string& text, const DateContext& context) const
{
    const auto exact = dates_.Read(text);
    return exact || !dates_.TakesTyped() ? exact : ReadTypedDate(text, context, dates_.Dates());
}

GridText::Reading GridText::ReadDay(const std::string& text, const DateContext& context) const
{
    if (const auto date = ReadDate(text, context))
        return {*date, {}};
    const auto day = Date::Of(2026, 11, 3);
    return {std::nullopt, "Please enter a date, for example " + dates_.Format(*day) + " or Nov 3."};
}

/// The fixed rule keeps all decimals of a number that is not money.
GridText::Reading GridText::ReadAmount(const std::string& text, FieldType type) const
{
    if (!dates_.TakesTyped())
        return ReadNumber(text, type);
    const TypedAmount amount = ReadTypedAmount(text, dates_.Amounts());
    Reading number = type == FieldType::Money ? Reading() : ReadNumber(text, type);
    if (number.value && (amount.value || !amount.ambiguous))
        return number;
    if (!amount.value)
        return {std::nullopt, amount.refusal};
    return {Convert(*amount.value, type), {}};
}

std::string GridText::Understood(const std::string& text, const GridColumn& column,
                                 const DateContext& context) const
{
    if (Trim(text).empty())
        return {};
    if (column.dataType == FieldType::Date) {
        const auto date = ReadDate(text, context);
        return date && dates_.Format(*date) != Trim(text) ? dates_.Format(*date) : std::string();
    }
    if (column.dataType != FieldType::Money)
        return {};
    const TypedAmount amount = ReadTypedAmount(text, dates_.Amounts());
    return amount.value && !Numeric::Read(text) ? Shown(*amount.value, column) : std::string();
}

}  // namespace clb
