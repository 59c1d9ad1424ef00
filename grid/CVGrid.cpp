#include "grid/CVGrid.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace clb {
namespace {

constexpr std::int32_t kTipsOff = 0;
constexpr std::int32_t kTipsFetched = 2;
constexpr std::int32_t kTipDelay = 500;

}  // namespace

CVGrid::CVGrid(const IDateForm& dates, IPrintJob& printing, std::string folder)
    : inner_("Grid", dates), printing_(printing), folder_(std::move(folder))
{
    inner_.TipDelay(kTipDelay);
    inner_.BeforeUpdate().connect([this](bool& cancel) { HandleBeforeUpdate(cancel); });
    inner_.FetchColumnData().connect(
        [this](std::int32_t row, std::int32_t column, const Value& given, Value& value) {
            fetchColumnData_.emit(row, column, given, value);
            if (IsNull(value))
                value = std::string();
        });
}

Value CVGrid::ColumnValue(std::int32_t column)
{
    return inner_.ColumnValue(column);
}

void CVGrid::ColumnValue(std::int32_t column, const Value& value)
{
    inner_.ColumnValue(column, value);
}

StoredRow CVGrid::Reread()
{
    const GridComponent::Meanwhile found = inner_.RereadRow();
    if (found.gone)
        return StoredRow::Gone;
    return found.columns.empty() ? StoredRow::Same : StoredRow::Changed;
}

void CVGrid::ShowToolTips(bool show)
{
    inner_.CellTips(show ? kTipsFetched : kTipsOff);
}

void CVGrid::Refetch()
{
    RedrawEnabled(false);
    CancelEdit();
    const GridComponent::Spot spot = inner_.CurrentSpot();
    try {
        inner_.RefetchRows();
    } catch (...) {
        RedrawEnabled(true);
        throw;
    }
    if (enableDisable_)
        enableDisable_();
    inner_.ReturnTo(spot);
    RedrawEnabled(true);
}

void CVGrid::RedrawEnabled(bool enabled)
{
    inner_.Redraw(enabled);
}

void CVGrid::CancelEdit()
{
    inner_.CancelEdit();
}

void CVGrid::DataSource(Recordset& records)
{
    inner_.DataSource(&records);
}

void CVGrid::Col(std::int32_t column)
{
    // A handler of BeforeUpdate cannot move the current column.
    if (!updating_)
        inner_.Col(column);
}

void CVGrid::MoveToRowKey(const Value& key)
{
    inner_.MoveToRowKey(key);
}

void CVGrid::HandleBeforeUpdate(bool& cancel)
{
    updating_ = true;
    try {
        beforeUpdate_.emit(cancel);
        if (cancel)
            inner_.Editing(true);
        else
            FillEmptyCells();
    } catch (...) {
        updating_ = false;
        throw;
    }
    updating_ = false;
}

void CVGrid::FillEmptyCells()
{
    for (std::int32_t index = 1; index <= Columns().Count(); ++index) {
        const GridColumn& column = Columns().Item(index);
        if (column.key.empty() || column.key == "Sequence" || !IsNull(ColumnValue(index)))
            continue;
        if (column.dataType == FieldType::Long || column.dataType == FieldType::Money)
            ColumnValue(index, std::int32_t{0});
        else if (column.dataType == FieldType::Text)
            ColumnValue(index, std::string());
    }
}

}  // namespace clb
