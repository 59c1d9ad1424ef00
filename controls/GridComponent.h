#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "controls/GridColumn.h"
#include "controls/GridRows.h"
#include "controls/GridSource.h"
#include "ports/IDateForm.h"

namespace clb {

/// A data grid: columns bound to the fields of a result set or of an array, or calculated; rows
/// with groups and a line for a new row; one current cell, one row in edit at a time.
///
///   row at rest --begin--> cell in edit --end--> row changed --Update--> row at rest
///                            |  Escape: the cell        |  Escape: the row
///
/// Rows and columns are numbered from 1. The row in edit is a copy: the source is written only by
/// Update, and only the fields that changed.
class GridComponent : public Control {
public:
    GridComponent(std::string name, const IDateForm& dates);

    GridColumns& Columns() { return columns_; }
    const GridColumns& Columns() const { return columns_; }
    GridGroups& Groups() { return groups_; }
    GridStyles& Styles() { return styles_; }
    GridRows& Rows()
    {
        Freshen();
        return rows_;
    }
    const GridRows& Rows() const { return rows_; }

    /// Binds the rows of an open result set: one column for each field, captioned with its name; no
    /// groups; the first data row and column 1 current. nullptr leaves the grid empty.
    void DataSource(Recordset* records);
    /// Whether it is bound to rows that can be read.
    bool Bound() const;
    /// Rows in memory to show instead of a result set.
    GridArray& Array() { return array_; }
    /// Takes groups that were added after binding into the displayed rows.
    void Regroup();
    /// Tells whoever draws the grid that columns, widths or styles were set from outside.
    void LayoutChanged() { Touch(); }
    /// Reads the source again (Requery) and stands on the first row. A source that cannot be read
    /// leaves the grid empty and unbound; its error is thrown.
    void RefetchRows();
    /// Reads the rows again because another program has written them. The current cell stays on its
    /// row, folded groups stay folded, and no event is raised. Does nothing while the current row
    /// has unsaved changes or a cell is in edit: Dirty and Editing then still answer so. A source
    /// that cannot be read leaves the grid as RefetchRows does.
    void ReadRowsAnew();
    struct Spot;
    /// Where a row was that had this number when the numbers were last told and is gone now.
    const Spot& ToldSpot(std::size_t row) const { return places_.at(row - 1); }
    /// The number that a row has now, if it had this number when the numbers were last told:
    /// ReadRowsAnew may have moved it since. 0 if the row is gone.
    std::size_t RowNow(std::size_t row) const;
    /// Says that whoever names rows by number knows the present numbers.
    void NumbersTold() { places_.clear(); }

    /// What another program has done to the current row since it became current or was last reread.
    struct Meanwhile {
        bool gone = false;
        std::vector<std::int32_t>
            columns;  ///< updatable columns whose stored value is another one now
    };
    /// Reads the stored values of the current row again. Cells that were not typed into follow
    /// them; the others keep what was typed. Other rows than data are never changed.
    Meanwhile RereadRow();
    /// Whether the cell of the current row holds a value that is not saved yet.
    bool Typed(std::int32_t column) const { return changed_.at(Index(column)); }
    /// What is stored in the cell of the current row, as far as it was read.
    const Value& StoredValue(std::int32_t column) const { return stored_.at(Index(column)); }
    /// Gives up what was typed into the cell: it holds the stored value again.
    void TakeStored(std::int32_t column);

    /// Folds the group of a heading row, or opens it. A changed row is saved first; false when that
    /// was refused. A current row that is folded away gives its place to the heading.
    bool Fold(std::size_t row, bool folded);
    /// Sets a column's width as the user does by hand. No less than LeastWidth.
    void ResizeColumn(std::int32_t column, std::int32_t pixels);
    static constexpr std::int32_t LeastWidth = 24;

    bool Redraw() const { return redraw_; }
    void Redraw(bool on);
    /// 0: no cell tips, 2: fetched through FetchCellTip.
    std::int32_t CellTips() const { return cellTips_; }
    void CellTips(std::int32_t mode) { cellTips_ = mode; }
    /// Milliseconds that the pointer rests on a cell before its tip shows.
    std::int32_t TipDelay() const { return tipDelay_; }
    void TipDelay(std::int32_t milliseconds) { tipDelay_ = milliseconds; }

    /// Displayed row and column of the current cell; row 0 when there are no rows at all.
    std::size_t Row() const { return row_; }
    std::int32_t Col() const { return col_; }
    /// Makes another column of the row current; an open cell edit ends first. Throws RuntimeError
    /// (SubscriptOutOfRange) when there is no such column.
    void Col(std::int32_t column);
    /// Makes a cell current. Leaving a changed row saves it first; false when that, or ending the
    /// cell's edit, was refused.
    bool MoveTo(std::size_t row, std::int32_t column);
    /// Makes the first row with the key current; null stands for the new-row line. Throws
    /// RuntimeError (ElementNotFound) when no row has it.
    void MoveToRowKey(const Value& key);
    /// Where the current cell stands, to come back to after the rows were read again.
    struct Spot {
        Value key;  ///< row key; null on other rows than data
        std::size_t row = 0;
        std::size_t identity = 0;  ///< unseen identity of the stored row; 0 for none
        std::int32_t column = 1;
        GridRowKind kind = GridRowKind::Data;
        std::string group;  ///< of a group's heading or footer
    };
    Spot CurrentSpot() const { return SpotOf(row_, col_); }
    /// To the same row, else the first with its key, else the row that now stands in its place; the
    /// column, else the nearest that exists.
    void ReturnTo(const Spot& spot);
    /// 1 on the new-row line, else 0.
    std::int32_t Position();

    /// Value of a column in the current row, unsaved changes included; a calculated column is
    /// fetched. Null where there is no row. Throws RuntimeError (SubscriptOutOfRange) for no
    /// column.
    Value ColumnValue(std::int32_t column);
    /// Writes it; the row has then unsaved changes. Throws TypeMismatch() or Overflow() when the
    /// column's type does not hold it.
    void ColumnValue(std::int32_t column, const Value& value);
    /// Value of a cell of any displayed row.
    Value CellValue(std::size_t row, std::int32_t column);
    /// The cell as shown: amounts with two decimals and grouping, dates in the form of the date
    /// port.
    std::string CellText(std::size_t row, std::int32_t column);
    std::string ShownText(const Value& value, std::int32_t column) const;
    /// Text of a group's footer row.
    std::string FooterText(std::size_t row);
    /// Tip of a cell; nothing when tips are off, the row is no data row, or there is no text.
    std::optional<std::string> CellTip(std::size_t row, std::int32_t column);

    bool Editing() const { return editing_; }
    /// true opens the current cell for editing (false when it refuses: read-only, a heading, or a
    /// handler cancelled); false ends the edit (false when the text cannot be read as the column's
    /// type; the cell then stays in edit). Opening asks for the focus.
    bool Editing(bool edit);
    /// Opens the current cell; key is the character that began the edit, 0 for none.
    bool BeginEdit(std::int16_t key);
    /// The text being typed into the cell in edit.
    const std::string& EditText() const { return editText_; }
    void EditText(const std::string& text);
    /// The typed text as a date; nothing when it is none.
    std::optional<Date> TypedDate() const { return dates_.Read(editText_); }
    /// Takes the typed text into the row. False when the column's type does not hold it: Refusal
    /// then says why and the cell stays in edit.
    bool EndEdit();
    const std::string& Refusal() const { return refusal_; }
    /// The cell in edit is the one to correct: its text or its row was refused and it has not been
    /// typed into since.
    bool Marked() const { return editing_ && marked_; }
    /// Forgets the typed text and ends the cell's edit.
    void CancelEdit();
    /// As the Escape key: the cell's edit, and again the row's changes; RowRestored is raised then.
    void Escape();
    /// Whether the column's cell can be opened in the current row.
    bool Editable(std::int32_t column) const;
    /// The row has unsaved changes.
    bool Dirty() const { return dirty_; }
    /// Saves the row's changes. True when there was nothing to save or it was saved; false when a
    /// handler of BeforeUpdate refused it. Throws EngineError; the row then keeps its changes.
    bool Update();
    /// Deletes the current data row unless a handler of BeforeDelete refuses. The row that followed
    /// becomes current.
    bool Delete();

    // Raised towards the container, in its terms; arguments by reference are read back.
    sigc::signal<void()>& AfterDelete() { return afterDelete_; }
    sigc::signal<void(std::int32_t, std::int32_t)>& AfterEdit() { return afterEdit_; }
    sigc::signal<void()>& AfterUpdate() { return afterUpdate_; }
    sigc::signal<void(bool&)>& BeforeDelete() { return beforeDelete_; }
    sigc::signal<void(std::int32_t, std::int32_t, std::int16_t, bool&)>& BeforeEdit()
    {
        return beforeEdit_;
    }
    sigc::signal<void(bool&)>& BeforeUpdate() { return beforeUpdate_; }
    sigc::signal<void(std::int32_t, std::int32_t, const Value&, Value&)>& FetchColumnData()
    {
        return fetchColumnData_;
    }
    sigc::signal<void(std::int32_t, std::int32_t)>& RowColChange() { return rowColChange_; }
    sigc::signal<void(std::int32_t, std::int32_t, std::int32_t, std::string&)>& FetchCellTip()
    {
        return fetchCellTip_;
    }
    sigc::signal<void(std::int16_t, std::int32_t, std::string&)>& FetchGroupFooterText()
    {
        return fetchGroupFooterText_;
    }
    /// The row's unsaved changes were given up.
    sigc::signal<void()>& RowRestored() { return rowRestored_; }
    /// A handler of BeforeUpdate refused the row and the update has ended.
    sigc::signal<void()>& UpdateRefused() { return updateRefused_; }
    /// The user gave a column a width, with the column and the pixels.
    sigc::signal<void(std::int32_t, std::int32_t)>& ColumnResized() { return columnResized_; }
    /// Painting was switched off or on.
    sigc::signal<void(bool)>& RedrawChanged() { return redrawChanged_; }
    /// The grid asks for the focus.
    sigc::signal<void()>& FocusWanted() { return focusWanted_; }

private:
    void LoadRow();
    static std::size_t Index(std::int32_t column) { return static_cast<std::size_t>(column - 1); }
    /// Takes the rows anew when the result set was read again behind the grid's back.
    void Freshen();
    void RequeryOrUnbind();
    Spot SpotOf(std::size_t row, std::int32_t column) const;
    std::size_t Find(const Spot& spot) const;
    void StandOnFirst();
    void FinishEdit();
    void SaveRow();
    std::string TextToEdit() const;
    bool ReadText(const std::string& text, std::int32_t column, Value& value,
                  std::string& why) const;
    void StandOn(std::size_t row, std::int32_t column);
    Value Fetch(std::size_t row, std::int32_t column);
    void Touch();

    void Bind(IGridSource* source);

    const IDateForm& dates_;
    std::optional<RecordsetSource> records_;
    GridArray array_{[this] { Bind(&array_); }};
    IGridSource* source_ = nullptr;
    GridColumns columns_;
    GridGroups groups_;
    GridStyles styles_;
    GridRows rows_;
    bool redraw_ = true;
    std::int32_t cellTips_ = 0;
    std::int32_t tipDelay_ = 0;
    std::size_t row_ = 0;
    std::int32_t col_ = 1;
    std::vector<Value> cells_;   // the current row as it would be saved
    std::vector<bool> changed_;  // which of its cells differ from what is stored
    std::vector<Value> stored_;  // the current row as it was read
    std::vector<Spot> places_;   // the rows when their numbers were told; empty: as now
    std::string editText_;
    bool editTouched_ = false;
    bool marked_ = false;
    std::string refusal_;
    Value key_;
    std::size_t identity_ = 0;
    bool editing_ = false;
    bool dirty_ = false;

    sigc::signal<void()> afterDelete_;
    sigc::signal<void(std::int32_t, std::int32_t)> afterEdit_;
    sigc::signal<void()> afterUpdate_;
    sigc::signal<void(bool&)> beforeDelete_;
    sigc::signal<void(std::int32_t, std::int32_t, std::int16_t, bool&)> beforeEdit_;
    sigc::signal<void(bool&)> beforeUpdate_;
    sigc::signal<void(std::int32_t, std::int32_t, const Value&, Value&)> fetchColumnData_;
    sigc::signal<void(std::int32_t, std::int32_t)> rowColChange_;
    sigc::signal<void(std::int32_t, std::int32_t, std::int32_t, std::string&)> fetchCellTip_;
    sigc::signal<void(std::int16_t, std::int32_t, std::string&)> fetchGroupFooterText_;
    sigc::signal<void()> rowRestored_;
    sigc::signal<void()> updateRefused_;
    sigc::signal<void(std::int32_t, std::int32_t)> columnResized_;
    sigc::signal<void(bool)> redrawChanged_;
    sigc::signal<void()> focusWanted_;
};

}  // namespace clb
