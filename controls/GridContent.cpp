#include "controls/GridContent.h"

#include <algorithm>

namespace clb {
namespace {

GridColumn ColumnOf(const Field& field)
{
    GridColumn column;
    column.key = column.caption = column.dbField = field.name;
    column.dataType = field.type;
    column.textWidth = field.width;
    column.updatable = field.updatable && !field.counter;
    if (field.type == FieldType::Money)
        column.alignment = column.headingAlignment = grid_align::kRight;
    return column;
}

}  // namespace

GridContent::GridContent(std::string name, const IDateForm& dates)
    : Control(std::move(name)), texts_(dates)
{
}

void GridContent::Touch()
{
    if (redraw_)
        NotifyChanged();
}

void GridContent::DataSource(Recordset* records)
{
    records_.reset();
    if (records)
        records_.emplace(*records);
    Bind(records_ ? &*records_ : nullptr);
}

void GridContent::Bind(IGridSource* source)
{
    source_ = source;
    columns_.Clear();
    groups_.clear();
    ColumnsGo();
    if (source_)
        for (const Field& field : source_->Fields())
            columns_.Add(ColumnOf(field));
    rows_.Bind(source_, columns_, groups_);
    RowsBound();
}

void GridContent::RequeryOrUnbind()
{
    try {
        source_->Requery();
    } catch (...) {
        Bind(nullptr);
        throw;
    }
}

void GridContent::Regroup()
{
    rows_.Rebuild();
    RowsBound();
}

void GridContent::ResizeColumn(std::int32_t column, std::int32_t pixels)
{
    GridColumn& target = columns_.Item(column);
    target.width = std::max(pixels, kLeastWidth);
    columnResized_.emit(column, target.width);
    Touch();
}

void GridContent::Redraw(bool on)
{
    redraw_ = on;
    redrawChanged_.emit(on);
    Touch();
}

Value GridContent::CellValue(std::size_t row, std::int32_t column)
{
    return columns_.Item(column).Calculated() ? Fetch(row, column) : rows_.Stored(row, column);
}

Value GridContent::Fetch(std::size_t row, std::int32_t column)
{
    if (rows_.Kind(row) != GridRowKind::Data)
        return Null{};
    const Value value = FetchedValue(static_cast<std::int32_t>(row), column);
    return IsEmpty(value) ? value : Convert(value, columns_.Item(column).dataType);
}

Value GridContent::FetchedValue(std::int32_t row, std::int32_t column)
{
    Value value;
    fetchColumnData_.emit(row, column, Null{}, value);
    return value;
}

std::string GridContent::ShownText(const Value& value, std::int32_t column) const
{
    return texts_.Shown(value, columns_.Item(column));
}

std::string GridContent::CellText(std::size_t row, std::int32_t column)
{
    return ShownText(CellValue(row, column), column);
}

bool GridContent::Warns(std::size_t row, std::int32_t column, const std::string& text) const
{
    const std::optional<bool> judged = judge_ ? judge_(row, column) : std::nullopt;
    return judged.value_or(columns_.Item(column).StandsRight() && text.starts_with('-'));
}

std::string GridContent::WarningOf(std::size_t row, std::int32_t column) const
{
    return meaning_ && judge_ && judge_(row, column).value_or(false) ? meaning_() : std::string();
}

std::string GridContent::FigureBeside(std::size_t row, std::int32_t column) const
{
    if (!beside_ || beside_->column != column || rows_.Kind(row) != GridRowKind::Data)
        return {};
    const std::string figure = beside_->text(row);
    return figure.empty() ? figure : beside_->caption + " after this row: " + figure;
}

std::string GridContent::FooterText(std::size_t row)
{
    std::string text;
    if (rows_.Kind(row) == GridRowKind::GroupFooter)
        fetchGroupFooterText_.emit(1, static_cast<std::int32_t>(row), text);
    return text;
}

std::optional<std::string> GridContent::CellTip(std::size_t row, std::int32_t column)
{
    if (cellTips_ == 0 || rows_.Kind(row) != GridRowKind::Data)
        return std::nullopt;
    columns_.Item(column);
    std::string text;
    fetchCellTip_.emit(static_cast<std::int32_t>(row), column, 0, text);
    if (text.empty())
        return std::nullopt;
    return text;
}

}  // namespace clb
