#include "controls/GridComponent.h"

#include <algorithm>
#include <cmath>

#include "base/Numeric.h"
#include "base/RuntimeError.h"

namespace clb {
namespace {

/// What an amount certainly holds.
constexpr double kMostAmount = 9e14;

std::string Grouped(double amount)
{
    return std::abs(amount) > kMostAmount ? Numeric::Grouped(amount, 2)
                                          : Money::FromDouble(amount).Grouped();
}

}  // namespace

GridComponent::GridComponent(std::string name, const IDateForm& dates)
    : Control(std::move(name)), dates_(dates)
{
}

void GridComponent::Touch()
{
    if (redraw_)
        NotifyChanged();
}

void GridComponent::DataSource(Recordset* records)
{
    records_.reset();
    if (records)
        records_.emplace(*records);
    Bind(records_ ? &*records_ : nullptr);
}

void GridComponent::Bind(IGridSource* source)
{
    source_ = source;
    NumbersTold();
    columns_.Clear();
    groups_.clear();
    // No current row until its cells are those of the new columns.
    row_ = 0;
    cells_.clear();
    stored_.clear();
    changed_.clear();
    editing_ = false;
    dirty_ = false;
    if (source_) {
        for (const Field& field : source_->Fields()) {
            GridColumn column;
            column.key = column.caption = column.dbField = field.name;
            column.dataType = field.type;
            column.textWidth = field.width;
            column.updatable = field.updatable && !field.counter;
            if (field.type == FieldType::Money)
                column.alignment = column.headingAlignment = grid_align::Right;
            columns_.Add(std::move(column));
        }
    }
    rows_.Bind(source_, columns_, groups_);
    StandOnFirst();
}

void GridComponent::Regroup()
{
    rows_.Rebuild();
    StandOnFirst();
}

void GridComponent::StandOnFirst()
{
    const std::size_t first = rows_.FirstData();
    StandOn(first != 0 ? first : rows_.NewRow(), 1);
}

void GridComponent::RefetchRows()
{
    if (!source_)
        return;
    RequeryOrUnbind();
    NumbersTold();
    rows_.Rebuild();
    StandOnFirst();
}

void GridComponent::RequeryOrUnbind()
{
    try {
        source_->Requery();
    } catch (...) {
        Bind(nullptr);
        throw;
    }
}

bool GridComponent::Bound() const
{
    return source_ && source_->IsOpen();
}

bool GridComponent::Fold(std::size_t row, bool folded)
{
    if (rows_.Folded(row) == folded || rows_.Kind(row) != GridRowKind::GroupHeading)
        return true;
    const std::string group = rows_.GroupValue(row);
    if (!Update())
        return false;
    // Saving may have moved the headings, or left the group without rows.
    row = rows_.OfGroup(GridRowKind::GroupHeading, group);
    if (row == 0)
        return true;
    const std::size_t before = rows_.Count();
    NumbersTold();
    rows_.Fold(row, folded);
    const bool above = row_ <= row;
    if (folded && !above) {
        const std::size_t hidden = before - rows_.Count();
        const bool inside = row_ <= row + hidden;
        row_ = inside ? row : row_ - hidden;
        if (inside) {
            LoadRow();
            rowColChange_.emit(static_cast<std::int32_t>(row_), col_);
        }
    } else if (!above) {
        row_ += rows_.Count() - before;
    }
    Touch();
    return true;
}

void GridComponent::ResizeColumn(std::int32_t column, std::int32_t pixels)
{
    GridColumn& target = columns_.Item(column);
    target.width = std::max(pixels, LeastWidth);
    columnResized_.emit(column, target.width);
    Touch();
}

void GridComponent::Redraw(bool on)
{
    redraw_ = on;
    redrawChanged_.emit(on);
    Touch();
}

void GridComponent::StandOn(std::size_t row, std::int32_t column)
{
    row_ = std::min(row, rows_.Count());
    col_ = column;
    LoadRow();
    Touch();
}

void GridComponent::LoadRow()
{
    const auto count = static_cast<std::size_t>(columns_.Count());
    changed_.assign(count, false);
    dirty_ = false;
    stored_.assign(count, Null{});
    cells_.assign(count, Null{});
    key_ = Null{};
    identity_ = 0;
    if (row_ == 0 || rows_.Kind(row_) != GridRowKind::Data)
        return;
    key_ = rows_.Key(row_);
    identity_ = rows_.Identity(row_);
    for (std::int32_t column = 1; column <= columns_.Count(); ++column)
        cells_[static_cast<std::size_t>(column - 1)] = rows_.Stored(row_, column);
    stored_ = cells_;
}

void GridComponent::Col(std::int32_t column)
{
    columns_.Item(column);
    if (column != col_)
        MoveTo(row_, column);
}

bool GridComponent::MoveTo(std::size_t row, std::int32_t column)
{
    Freshen();
    columns_.Item(column);
    rows_.Kind(row);
    if (editing_ && !EndEdit())
        return false;
    if (row != row_) {
        // Saving the row that is left may move the others, so the one that is meant is found again.
        std::optional<Spot> meant;
        if (dirty_)
            meant = SpotOf(row, column);
        if (!Update())
            return false;
        StandOn(meant ? Find(*meant) : row, column);
    } else if (column != col_) {
        col_ = column;
        Touch();
    } else {
        return true;
    }
    rowColChange_.emit(static_cast<std::int32_t>(row_), col_);
    return true;
}

void GridComponent::MoveToRowKey(const Value& key)
{
    const std::size_t row = IsNull(key) ? rows_.NewRow() : rows_.OfKey(key);
    if (row == 0)
        throw RuntimeError(errors::ElementNotFound, "No row has the key " + ToText(key));
    MoveTo(row, col_);
}

GridComponent::Spot GridComponent::SpotOf(std::size_t row, std::int32_t column) const
{
    Spot spot;
    spot.row = row;
    spot.column = column;
    if (row == 0)
        return spot;
    // The current row is known as it was when it became current: its rows may be replaced by now.
    spot.kind = rows_.Kind(row);
    spot.key = row == row_ ? key_ : rows_.Key(row);
    spot.identity = row == row_ ? identity_ : rows_.Identity(row);
    if (spot.kind == GridRowKind::GroupHeading || spot.kind == GridRowKind::GroupFooter)
        spot.group = rows_.GroupValue(row);
    return spot;
}

std::size_t GridComponent::Find(const Spot& spot) const
{
    std::size_t row = 0;
    if (spot.kind == GridRowKind::NewRow)
        row = rows_.NewRow();
    else if (spot.kind != GridRowKind::Data)
        row = rows_.OfGroup(spot.kind, spot.group);
    if (row == 0 && spot.identity != 0)
        row = rows_.OfIdentity(spot.identity);
    if (row == 0 && !IsNull(spot.key))
        row = rows_.OfKey(spot.key);
    return row != 0 ? row : std::min(std::max<std::size_t>(spot.row, 1), rows_.Count());
}

void GridComponent::ReturnTo(const Spot& spot)
{
    const std::int32_t column = std::clamp(spot.column, 1, std::max(columns_.Count(), 1));
    if (const std::size_t row = Find(spot); row != 0)
        MoveTo(row, column);
}

void GridComponent::Freshen()
{
    if (!rows_.Stale())
        return;
    const Spot spot = CurrentSpot();
    editing_ = false;
    NumbersTold();
    rows_.Rebuild();
    row_ = Find(spot);
    LoadRow();
}

std::int32_t GridComponent::Position()
{
    Freshen();
    return row_ == 0 ? 1 : rows_.Position(row_);
}

Value GridComponent::ColumnValue(std::int32_t column)
{
    Freshen();
    if (columns_.Item(column).Calculated())
        return row_ == 0 ? Value{} : Fetch(row_, column);
    const auto at = static_cast<std::size_t>(column - 1);
    return at < cells_.size() ? cells_[at] : Value{};
}

void GridComponent::ColumnValue(std::int32_t column, const Value& value)
{
    Freshen();
    const GridColumn& target = columns_.Item(column);
    if (row_ == 0 || target.Calculated())
        return;
    const auto at = static_cast<std::size_t>(column - 1);
    cells_[at] = Convert(value, target.dataType);
    changed_[at] = true;
    dirty_ = true;
    Touch();
}

Value GridComponent::CellValue(std::size_t row, std::int32_t column)
{
    Freshen();
    if (row == row_)
        return ColumnValue(column);
    return columns_.Item(column).Calculated() ? Fetch(row, column) : rows_.Stored(row, column);
}

Value GridComponent::Fetch(std::size_t row, std::int32_t column)
{
    if (rows_.Kind(row) != GridRowKind::Data)
        return Null{};
    Value value;
    fetchColumnData_.emit(static_cast<std::int32_t>(row), column, Null{}, value);
    if (IsEmpty(value))
        return value;
    return Convert(value, columns_.Item(column).dataType);
}

std::string GridComponent::ShownText(const Value& value, std::int32_t column) const
{
    if (IsEmpty(value))
        return {};
    if (const auto* money = std::get_if<Money>(&value))
        return money->Grouped();
    if (const auto* date = std::get_if<Date>(&value))
        return dates_.Format(*date);
    if (const auto* number = std::get_if<double>(&value))
        if (columns_.Item(column).Calculated())
            return Grouped(*number);
    for (const GridValueItem& item : columns_.Item(column).valueItems)
        if (item.value == value)
            return item.text;
    return ToText(value);
}

std::string GridComponent::CellText(std::size_t row, std::int32_t column)
{
    return ShownText(CellValue(row, column), column);
}

std::string GridComponent::FooterText(std::size_t row)
{
    std::string text;
    if (rows_.Kind(row) == GridRowKind::GroupFooter)
        fetchGroupFooterText_.emit(1, static_cast<std::int32_t>(row), text);
    return text;
}

std::optional<std::string> GridComponent::CellTip(std::size_t row, std::int32_t column)
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
