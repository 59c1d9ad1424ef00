#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "controls/GridComponent.h"
#include "data/IShownState.h"
#include "grid/GridHtml.h"
#include "ports/IPrintJob.h"

namespace clb {

/// The program's grid: a thin wrapper around the grid component with a small fixed set of members,
/// the component's events in its own words, and typed defaults for the empty cells of a row that is
/// about to be saved.
class CVGrid : public ICurrentRow {
public:
    /// printing and dates are borrowed and outlive the grid; folder is the program's, where the
    /// printed file lies while it is printed.
    CVGrid(const IDateForm& dates, IPrintJob& printing, std::string folder);

    /// Cell of the current row.
    Value ColumnValue(std::int32_t column) override;
    void ColumnValue(std::int32_t column, const Value& value) override;
    StoredRow Reread() override;
    /// Whether cells show a tip (fetched through FetchCellTip).
    void ShowToolTips(bool show);
    bool ShowToolTips() const { return inner_.CellTips() != 0; }
    /// Reads the rows again from the data source, back to the same row (else its key, else its
    /// place) and column (else the nearest that exists).
    void Refetch();
    /// Saves the row being edited. True when there is nothing left to save.
    bool Update() { return inner_.Update(); }
    void RedrawEnabled(bool enabled);
    void CancelEdit();
    void DataSource(Recordset& records);
    /// Size and place in the window, in pixels.
    std::int32_t Width() const { return inner_.Place().width; }
    std::int32_t Left() const { return inner_.Place().left; }
    GridColumns& Columns() { return inner_.Columns(); }
    GridGroups& Groups() { return inner_.Groups(); }
    GridStyles& Styles() { return inner_.Styles(); }
    GridRows& Rows() { return inner_.Rows(); }
    bool Editing() const { return inner_.Editing(); }
    void Editing(bool edit) { inner_.Editing(edit); }
    /// Makes a column current; ignored while a row is being saved.
    void Col(std::int32_t column);
    /// Rows in memory, to be shown instead of a recordset's.
    GridArray& DBArray() { return inner_.Array(); }
    /// Deletes the current row.
    void Delete() { inner_.Delete(); }
    /// Makes the first row with the key current; null is the new-row line. Throws RuntimeError when
    /// no row has it.
    void MoveToRowKey(const Value& key);
    /// Prints what the grid shows, by way of the file print.html in the program's folder, and
    /// returns when printing has ended; every file print.* there is then removed. A row in edit is
    /// printed as it shows. Throws RuntimeError when the file cannot be written or printing cannot
    /// be started; the file is left.
    void PrintMe();

    // The events, in their order. Arguments by reference are read back.
    sigc::signal<void()>& AfterDelete() { return inner_.AfterDelete(); }
    sigc::signal<void(std::int32_t, std::int32_t)>& AfterEdit() { return inner_.AfterEdit(); }
    sigc::signal<void()>& AfterUpdate() { return inner_.AfterUpdate(); }
    sigc::signal<void(bool&)>& BeforeDelete() { return inner_.BeforeDelete(); }
    sigc::signal<void(std::int32_t, std::int32_t, std::int16_t, bool&)>& BeforeEdit()
    {
        return inner_.BeforeEdit();
    }
    sigc::signal<void(bool&)>& BeforeUpdate() { return beforeUpdate_; }
    /// Row, column, the component's value, and the value that the handler gives; null becomes "".
    sigc::signal<void(std::int32_t, std::int32_t, const Value&, Value&)>& FetchColumnData()
    {
        return fetchColumnData_;
    }
    sigc::signal<void(std::int32_t, std::int32_t)>& RowColChange() { return inner_.RowColChange(); }
    /// Row, column, a value of the component, and the tip's text.
    sigc::signal<void(std::int32_t, std::int32_t, std::int32_t, std::string&)>& FetchCellTip()
    {
        return inner_.FetchCellTip();
    }
    /// Group level, displayed row of the footer, and its text.
    sigc::signal<void(std::int16_t, std::int32_t, std::string&)>& FetchGroupFooterText()
    {
        return inner_.FetchGroupFooterText();
    }

    /// What Refetch calls so that the commands follow the new rows.
    void OnRefetch(std::function<void()> enableDisable)
    {
        enableDisable_ = std::move(enableDisable);
    }

    /// Where PrintMe gets the title and the totals around the rows from.
    void OnPrint(std::function<GridPage()> page) { page_ = std::move(page); }

    GridComponent& Component() { return inner_; }
    const GridComponent& Component() const { return inner_; }

private:
    GridComponent inner_;
    void HandleBeforeUpdate(bool& cancel);
    void FillEmptyCells();

    sigc::signal<void(bool&)> beforeUpdate_;
    sigc::signal<void(std::int32_t, std::int32_t, const Value&, Value&)> fetchColumnData_;
    bool updating_ = false;
    std::function<void()> enableDisable_;
    std::function<GridPage()> page_;
    IPrintJob& printing_;
    std::string folder_;
};

}  // namespace clb
