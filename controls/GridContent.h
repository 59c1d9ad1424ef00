// What a data grid shows, without a current cell: columns, rows, groups, and the texts of cells.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "controls/Control.h"
#include "controls/GridColumn.h"
#include "controls/GridRows.h"
#include "controls/GridSource.h"
#include "controls/GridText.h"
#include "ports/IDateForm.h"

namespace clb {

/// Columns bound to the fields of a result set or of an array, or calculated, and rows with groups
/// and a line for a new row. Rows and columns are numbered from 1.
class GridContent : public Control {
public:
    GridContent(std::string name, const IDateForm& dates);

    GridColumns& Columns() { return columns_; }
    [[nodiscard]] const GridColumns& Columns() const { return columns_; }
    GridGroups& Groups() { return groups_; }
    GridStyles& Styles() { return styles_; }
    GridRows& Rows()
    {
        Freshen();
        return rows_;
    }
    [[nodiscard]] const GridRows& Rows() const { return rows_; }

    /// Binds the rows of an open result set: one column for each field, captioned with its name; no
    /// groups; the first data row and column 1 current. nullptr leaves the grid empty.
    void DataSource(Recordset* records);
    /// Whether it is bound to rows that can be read.
    [[nodiscard]] bool Bound() const { return source_ != nullptr && source_->IsOpen(); }
    /// Rows in memory to show instead of a result set.
    GridArray& Array() { return array_; }
    /// Whether a folded group stays folded when other rows are bound, until it is opened.
    void KeepFolds(bool keep) { rows_.KeepFolds(keep); }
    /// Whether a group's footer never becomes current by itself: the row after it does.
    void PassFooters(bool pass) { rows_.PassFooters(pass); }
    /// Applies groups that were added after binding to the displayed rows.
    void Regroup();
    /// To be called after columns, widths or styles were changed: the grid is drawn again.
    void LayoutChanged() { Touch(); }
    /// Sets a column's width as the user does by hand. No less than kLeastWidth.
    void ResizeColumn(std::int32_t column, std::int32_t pixels);
    static constexpr std::int32_t kLeastWidth = 24;

    [[nodiscard]] bool Redraw() const { return redraw_; }
    void Redraw(bool on);
    /// 0: no cell tips, 2: fetched through FetchCellTip.
    [[nodiscard]] std::int32_t CellTips() const { return cellTips_; }
    void CellTips(std::int32_t mode) { cellTips_ = mode; }
    /// Milliseconds that the pointer rests on a cell before its tip shows.
    [[nodiscard]] std::int32_t TipDelay() const { return tipDelay_; }
    void TipDelay(std::int32_t milliseconds) { tipDelay_ = milliseconds; }

    /// Value of a cell of any displayed row, unsaved changes included; null in rows that are not
    /// data. A calculated cell is fetched.
    virtual Value CellValue(std::size_t row, std::int32_t column);
    /// The cell as shown; see GridText.
    std::string CellText(std::size_t row, std::int32_t column);
    [[nodiscard]] std::string ShownText(const Value& value, std::int32_t column) const;
    /// Figures beside the rows that no column holds, such as a running balance.
    struct SideFigures {
        std::string caption;
        std::int32_t column = 0;  ///< column that they add up
        /// The figure of a displayed row; empty if it has none. Raises no event.
        std::function<std::string(std::size_t row)> text;
    };
    void Beside(std::optional<SideFigures> figures) { beside_ = std::move(figures); }
    [[nodiscard]] const std::optional<SideFigures>& Beside() const { return beside_; }
    /// The figure beside a row with its name, for the column that adds up to it; empty for others.
    [[nodiscard]] std::string FigureBeside(std::size_t row, std::int32_t column) const;
    /// The column of dates in which today is shown; 0: none.
    void DayColumn(std::int32_t column) { dayColumn_ = column; }
    [[nodiscard]] std::int32_t DayColumn() const { return dayColumn_; }
    /// A date as the cells show it.
    [[nodiscard]] std::string DateText(const Value& date) const { return texts_.Shown(date, {}); }
    /// Decides whether a figure is drawn as a warning. Nothing: if it is below 0.
    using Judge = std::function<std::optional<bool>(std::size_t row, std::int32_t column)>;
    /// `meaning` returns in a word or two what the warnings of the shown rows mean.
    void JudgeFigures(Judge judge, std::function<std::string()> meaning = {})
    {
        judge_ = std::move(judge);
        meaning_ = std::move(meaning);
    }
    /// Whether a figure with this text is drawn as a warning. Raises no event.
    [[nodiscard]] bool Warns(std::size_t row, std::int32_t column, const std::string& text) const;
    /// What the warning of a figure means if its sign does not say so; otherwise empty. Raises no
    /// event.
    [[nodiscard]] std::string WarningOf(std::size_t row, std::int32_t column) const;
    /// Decides which rows the user has not looked at yet. They are marked. Raises no event.
    using Unseen = std::function<bool(std::size_t row)>;
    void JudgeRows(Unseen unseen) { unseen_ = std::move(unseen); }
    [[nodiscard]] bool IsUnseen(std::size_t row) const { return unseen_ && unseen_(row); }
    /// Text of a group's footer row.
    std::string FooterText(std::size_t row);
    /// Tip of a cell; nothing if tips are off, the row is not a data row, or there is no text.
    std::optional<std::string> CellTip(std::size_t row, std::int32_t column);

    // Arguments by reference are read back.
    Event<void(std::int32_t, std::int32_t, const Value&, Value&)> FetchColumnData()
    {
        return fetchColumnData_;
    }
    Event<void(std::int32_t, std::int32_t, std::int32_t, std::string&)> FetchCellTip()
    {
        return fetchCellTip_;
    }
    Event<void(std::int16_t, std::int32_t, std::string&)> FetchGroupFooterText()
    {
        return fetchGroupFooterText_;
    }
    /// The user gave a column a width, with the column and the pixels.
    Event<void(std::int32_t, std::int32_t)> ColumnResized() { return columnResized_; }
    /// Painting was switched off or on.
    Event<void(bool)> RedrawChanged() { return redrawChanged_; }

protected:
    /// Called when other columns are about to be bound, and after the rows were bound or grouped.
    virtual void ColumnsGo() = 0;
    virtual void RowsBound() = 0;
    /// Takes the rows again if the result set was read again without the grid.
    virtual void Freshen() = 0;
    /// Raises FetchColumnData for a cell.
    virtual Value FetchedValue(std::int32_t row, std::int32_t column);

    /// Value of a calculated cell, as the column's type.
    Value Fetch(std::size_t row, std::int32_t column);
    /// Draws the grid again, unless painting is off.
    void Touch();
    GridRows& BoundRows() { return rows_; }
    /// nullptr if the grid is empty.
    IGridSource* Source() { return source_; }
    /// Reads the source again. If it cannot be read the grid is empty and unbound, and its error is
    /// thrown.
    void RequeryOrUnbind();
    [[nodiscard]] const GridText& Texts() const { return texts_; }

private:
    void Bind(IGridSource* source);

    GridText texts_;
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
    Judge judge_;
    std::function<std::string()> meaning_;
    Unseen unseen_;
    std::optional<SideFigures> beside_;
    std::int32_t dayColumn_ = 0;

    sigc::signal<void(std::int32_t, std::int32_t, const Value&, Value&)> fetchColumnData_;
    sigc::signal<void(std::int32_t, std::int32_t, std::int32_t, std::string&)> fetchCellTip_;
    sigc::signal<void(std::int16_t, std::int32_t, std::string&)> fetchGroupFooterText_;
    sigc::signal<void(std::int32_t, std::int32_t)> columnResized_;
    sigc::signal<void(bool)> redrawChanged_;
};

}  // namespace clb
