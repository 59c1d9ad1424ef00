// The program's grid.
#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "controls/GridComponent.h"
#include "data/IShownState.h"
#include "grid/GridHtml.h"
#include "ports/IPrintJob.h"

namespace clb {

/// The data grid with the program's own rules: typed defaults for the empty cells of a row that is
/// about to be saved, and printing. To the data store it is the current row.
class CVGrid : public GridComponent, public ICurrentRow {
public:
    /// printing and dates are borrowed and outlive the grid; folder is the program's, where the
    /// printed file is kept while it is printed.
    CVGrid(const IDateForm& dates, IPrintJob& printing, std::string folder);

    /// Cell of the current row.
    Value ColumnValue(std::int32_t column) override { return GridComponent::ColumnValue(column); }
    void ColumnValue(std::int32_t column, const Value& value) override
    {
        GridComponent::ColumnValue(column, value);
    }
    StoredRow Reread() override;
    /// Whether cells show a tip (fetched through FetchCellTip).
    void ShowToolTips(bool show);
    [[nodiscard]] bool ShowToolTips() const { return CellTips() != 0; }
    /// Reads the rows again from the data source, back to the same row (else its key, else its
    /// place) and column (else the nearest that exists).
    void Refetch();
    void RedrawEnabled(bool enabled) { Redraw(enabled); }
    using GridComponent::DataSource;
    void DataSource(Recordset& records) { GridComponent::DataSource(&records); }
    /// Size and place in the window, in pixels.
    [[nodiscard]] std::int32_t Width() const { return Place().width; }
    [[nodiscard]] std::int32_t Left() const { return Place().left; }
    using GridComponent::Col;
    /// Makes a column current; ignored while a row is being saved.
    void Col(std::int32_t column) override;
    /// Rows in memory, to be shown instead of a recordset's.
    GridArray& DBArray() { return Array(); }
    /// Prints what the grid shows, by way of the file print.html in the program's folder, and
    /// returns when printing has ended; every file print.* there is then removed. A row in edit is
    /// printed as it is shown. Throws RuntimeError if the file cannot be written or printing cannot
    /// be started; the file then stays.
    void PrintMe();

    /// Sets what Refetch calls so that the commands follow the new rows.
    void OnRefetch(std::function<void()> enableDisable)
    {
        enableDisable_ = std::move(enableDisable);
    }

    /// Sets what gives PrintMe the title and the totals around the rows.
    void OnPrint(std::function<GridPage()> page) { page_ = std::move(page); }

protected:
    bool MayUpdate() override;
    /// A value that no handler gives is the empty text.
    Value FetchedValue(std::int32_t row, std::int32_t column) override;

private:
    void FillEmptyCells();

    bool updating_ = false;
    std::function<void()> enableDisable_;
    std::function<GridPage()> page_;
    IPrintJob& printing_;
    std::string folder_;
};

}  // namespace clb
