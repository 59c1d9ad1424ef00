// The grid for screen readers.
#pragma once
#include <QAccessibleWidget>
#include <cstdint>
#include <map>

namespace clb {

class GridComponent;
class GridView;

/// The grid as a screen reader sees it: a table with column headers at the top and a row header at
/// the left of each row. Cells are made when they are asked for, and deleted when the rows change.
///
/// The children are the rows, beginning with the column headers, each with its row header first.
/// The last child is the viewport, with the cell editor and the hint of an empty grid.
class AccessibleGrid : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    /// Makes the toolkit use this class for every grid.
    static void Install();
    /// The number of the child that is a cell, for events of the grid. Row 0 has the column
    /// headers, and place 0 the row header; cells are numbered from 1, columns as they are shown.
    static int ChildOf(const GridView& view, std::size_t row, std::size_t place);

    /// Both are borrowed and outlive this.
    AccessibleGrid(GridView& view, GridComponent& grid);
    ~AccessibleGrid() override;

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

    // The table. Its rows and columns are numbered from 0, without the headers.
    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] QString rowDescription(int row) const override;
    [[nodiscard]] int selectedCellCount() const override;
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override;
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override;
    bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

    /// What a row is besides its kind: "new", "marked", "changed". Rows are numbered from 1 here.
    [[nodiscard]] QStringList States(std::size_t row) const;
    /// What a row is, such as "Row 3" or "New row".
    [[nodiscard]] QString KindText(std::size_t row) const;
    /// Whether the user has marked the row, which is numbered from 1.
    [[nodiscard]] bool IsMarked(std::size_t row) const;
    [[nodiscard]] QAccessibleInterface* Header(std::size_t place) const;
    [[nodiscard]] QAccessibleInterface* RowHeader(std::size_t row) const;

private:
    void Forget();

    GridView& view_;
    GridComponent& grid_;
    mutable std::map<int, QAccessible::Id> cells_;
};

}  // namespace clb
