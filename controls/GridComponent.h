// A data grid with a current cell and one row in edit.
#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "controls/CellEntry.h"
#include "controls/EditedRow.h"
#include "controls/GridContent.h"
#include "controls/GridMarks.h"
#include "controls/GridRowEvents.h"
#include "controls/GridSpot.h"

namespace clb {

/// The grid's current cell, and the editing of its row.
///
///   row at rest --BeginEdit--> cell in edit --EndEdit--> row changed --Update--> row at rest
///                                |  Escape: the cell        |  Escape: the row
///
/// The row in edit is a copy: the source is written only by Update, and only the fields that
/// changed.
class GridComponent : public GridContent, public GridRowEvents {
public:
    using GridContent::GridContent;

    /// Reads the source again (Requery) and makes the first row current. A source that cannot be
    /// read leaves the grid empty and unbound; its error is thrown.
    void RefetchRows();
    /// Reads the rows again because another program has written them. The current cell stays on its
    /// row, folded groups stay folded, and no event is raised. Does nothing while the current row
    /// has unsaved changes or a cell is in edit: Dirty and Editing then still answer so. A source
    /// that cannot be read leaves the grid as RefetchRows does.
    void ReadRowsAnew();
    /// Where the row was that was reported with this number and is gone now.
    [[nodiscard]] const GridSpot& ReportedSpot(std::size_t row) const { return reported_.At(row); }
    /// The number that a row has now, if it had this number when the numbers were last reported:
    /// ReadRowsAnew may have moved it since. 0 if the row is gone.
    [[nodiscard]] std::size_t RowNow(std::size_t row) const { return reported_.Now(Rows(), row); }
    /// The present row numbers were reported: from now on a number means the row that has it now.
    void NumbersReported() { reported_.Forget(); }

    /// What another program has done to the current row since it became current or was last reread.
    struct Meanwhile {
        bool gone = false;
        /// Updatable columns whose stored value is another one now.
        std::vector<std::int32_t> columns;
    };
    /// Reads the stored values of the current row again. Cells that were not typed into follow
    /// them; the others keep what was typed. Rows that are not data are never changed.
    Meanwhile RereadRow();
    /// Whether the cell of the current row holds a value that is not saved yet.
    [[nodiscard]] bool Typed(std::int32_t column) const { return edited_.Typed(column); }
    /// What is stored in the cell of the current row, as far as it was read.
    [[nodiscard]] const Value& Stored(std::int32_t column) const { return edited_.Stored(column); }
    /// Gives up what was typed into the cell: it holds the stored value again.
    void TakeStored(std::int32_t column);

    /// Folds the group of a heading row, or opens it. A changed row is saved first; false if that
    /// was refused. If the current row is folded away, the heading becomes current.
    bool Fold(std::size_t row, bool folded);

    /// Shows the rows in another order; only the view changes. A changed row is saved first; false
    /// if that was refused. The current cell stays on its row.
    bool SortBy(GridSort sort);
    /// The rows that the user has marked. Other rows, and a deletion, unmark them.
    GridMarks& Marks() { return marks_; }
    [[nodiscard]] const GridMarks& Marks() const { return marks_; }

    /// Displayed row and column of the current cell; row 0 if there are no rows at all.
    [[nodiscard]] std::size_t Row() const { return row_; }
    [[nodiscard]] std::int32_t Col() const { return col_; }
    /// Makes another column of the row current; an open cell edit ends first. Throws RuntimeError
    /// (SubscriptOutOfRange) if there is no such column.
    virtual void Col(std::int32_t column);
    /// Makes a cell current. Leaving a changed row saves it first; false if that, or ending the
    /// cell's edit, was refused.
    bool MoveTo(std::size_t row, std::int32_t column);
    /// Makes the first row with the key current; null is the new-row line. Throws RuntimeError
    /// (ElementNotFound) if no row has it.
    void MoveToRowKey(const Value& key);
    /// Where the current cell is, to come back to after the rows were read again.
    [[nodiscard]] GridSpot CurrentSpot() const
    {
        return SpotOf(Rows(), row_, col_, edited_.Key(), edited_.Identity());
    }
    /// To the same row, else the first with its key, else the row that is now in its place; the
    /// column, else the nearest that exists.
    void ReturnTo(const GridSpot& spot);
    /// 1 on the new-row line, else 0.
    std::int32_t Position();

    /// Value of a column in the current row, unsaved changes included; a calculated column is
    /// fetched. Null if there is no row. Throws RuntimeError (SubscriptOutOfRange) if there is no
    /// such column.
    Value ColumnValue(std::int32_t column);
    /// Writes it; the row then has unsaved changes. Throws TypeMismatch() or Overflow() if the
    /// column's type does not hold it.
    void ColumnValue(std::int32_t column, const Value& value);
    Value CellValue(std::size_t row, std::int32_t column) override;

    [[nodiscard]] bool Editing() const { return entry_.IsOpen(); }
    /// true opens the current cell for editing (false if it refuses: read-only, a heading, or a
    /// handler cancelled); false ends the edit (false if the text cannot be read as the column's
    /// type; the cell then stays in edit). Opening asks for the focus.
    bool Editing(bool edit);
    /// Opens the current cell; key is the character that began the edit, 0 for none.
    bool BeginEdit(std::int16_t key);
    /// The text being typed into the cell in edit.
    [[nodiscard]] const std::string& EditText() const { return entry_.Text(); }
    void EditText(const std::string& text);
    /// What is typed into the cell in edit: how it is understood, and why it is refused.
    [[nodiscard]] const CellEntry& Entry() const { return entry_; }
    /// From now on dates are typed and offered so. A new row in which nothing but an offered date
    /// was entered is not saved.
    void TypeDates(CellEntry::Dates dates) { entry_.TypeDates(std::move(dates)); }
    /// From now on a new row goes to its place among the others as soon as it is saved. Otherwise
    /// it stays the last one until the rows are read again.
    void PlaceNewRows() { placesNewRows_ = true; }
    /// Takes the typed text into the row. False if the column's type does not hold it: Refusal then
    /// says why, and the cell stays in edit.
    bool EndEdit();
    [[nodiscard]] const std::string& Refusal() const { return entry_.Refusal(); }
    /// Whether the cell in edit is the one to correct: its text or its row was refused, and it has
    /// not been typed into since.
    [[nodiscard]] bool Marked() const { return entry_.Marked(); }
    /// Forgets the typed text and ends the cell's edit.
    void CancelEdit();
    /// As the Escape key: gives up the cell's edit, and the second time the row's changes;
    /// RowRestored is raised then.
    void Escape();
    /// Whether the column's cell can be opened in the current row.
    [[nodiscard]] bool Editable(std::int32_t column) const;
    /// The row has unsaved changes.
    [[nodiscard]] bool Dirty() const { return edited_.Dirty(); }
    /// Saves the row's changes. True if there was nothing to save or it was saved; false if a
    /// handler of BeforeUpdate refused it. Throws EngineError; the row then keeps its changes.
    bool Update();
    /// Deletes the current data row unless a handler of BeforeDelete refuses. The row that followed
    /// becomes current.
    bool Delete();

protected:
    /// Raises RowColChange for the current cell.
    void ReportPlace();

private:
    /// While it lives no row is current, so that all cells are the stored ones while rows move.
    class NoRow {
    public:
        explicit NoRow(std::size_t& row) : row_(row), before_(std::exchange(row, 0)) {}
        ~NoRow() { row_ = before_; }
        NoRow(const NoRow&) = delete;
        NoRow& operator=(const NoRow&) = delete;

    private:
        std::size_t& row_;
        std::size_t before_;
    };
    void ColumnsGo() override;
    void RowsBound() override;
    void Freshen() override;
    void LoadRow()
    {
        edited_.Load(BoundRows(), row_, Columns());
        entry_.ForgetOffer();
    }
    void TakeRows();
    void StandOn(std::size_t row, std::int32_t column);
    void FinishEdit();
    /// Returns whether the row is a new one.
    bool SaveRow();
    void ShowAdded();

    ReportedRows reported_;
    GridMarks marks_;
    std::size_t row_ = 0;
    std::int32_t col_ = kFirstColumn;
    EditedRow edited_;
    CellEntry entry_{Texts(), Columns()};
    bool placesNewRows_ = false;
};

}  // namespace clb
