#include "grid/CVGrid.h"

namespace clb {
namespace {

constexpr std::int32_t kTipsOff = 0;
constexpr std::int32_t kTipsFetched = 2;
constexpr std::int32_t kTipDelay = 500;

/// Sets a flag for its own lifetime.
class WhileTrue {
public:
    explicit WhileTrue(bool& flag) : flag_(flag) { flag_ = true; }
    ~WhileTrue() { flag_ = false; }
    WhileTrue(const WhileTrue&) = delete;
    WhileTrue& operator=(const WhileTrue&) = delete;

private:
    bool& flag_;
};

}  // namespace

CVGrid::CVGrid(const IDateForm& dates, IPrintJob& printing, std::string folder)
    : GridComponent("Grid", dates), printing_(printing), folder_(std::move(folder))
{
    TipDelay(kTipDelay);
    GotFocus().connect([this] {
        if (Row() != 0)
            ReportPlace();
    });
}

StoredRow CVGrid::Reread()
{
    const Meanwhile found = RereadRow();
    if (found.gone)
        return StoredRow::Gone;
    return found.columns.empty() ? StoredRow::Same : StoredRow::Changed;
}

void CVGrid::ShowToolTips(bool show)
{
    CellTips(show ? kTipsFetched : kTipsOff);
}

void CVGrid::Refetch()
{
    RedrawEnabled(false);
    CancelEdit();
    const GridSpot spot = CurrentSpot();
    try {
        RefetchRows();
    } catch (...) {
        RedrawEnabled(true);
        throw;
    }
    if (enableDisable_)
        enableDisable_();
    ReturnTo(spot);
    RedrawEnabled(true);
}

void CVGrid::Col(std::int32_t column)
{
    // A handler of BeforeUpdate cannot move the current column.
    if (!updating_)
        GridComponent::Col(column);
}

Value CVGrid::FetchedValue(std::int32_t row, std::int32_t column)
{
    Value value = GridComponent::FetchedValue(row, column);
    return IsNull(value) ? Value(std::string()) : value;
}

bool CVGrid::MayUpdate()
{
    const WhileTrue updating(updating_);
    if (!GridComponent::MayUpdate()) {
        Editing(true);
        return false;
    }
    FillEmptyCells();
    return true;
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
