#pragma once
#include <QAccessibleWidget>
#include <cstdint>
#include <map>

namespace clb {

class GridView;

/// The grid as a screen reader knows it: a table with a row of column headers on top and a row
/// header at the left of each line. Cells come into being when they are asked for; those that were
/// are dropped when the rows change.
///
/// Children in order: the lines from the header on, each from its row header on; the viewport with
/// the cell editor and the hint of an empty grid comes last.
class AccessibleGrid : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    /// Makes the toolkit use this for every grid.
    static void Install();
    /// Number of the child that is a cell, for events of the grid; row from 1, 0 the headers';
    /// place from 1 among the shown columns, 0 the row header.
    static int ChildOf(const GridView& view, std::size_t row, std::size_t place);

    explicit AccessibleGrid(GridView& view);
    ~AccessibleGrid() override;

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    // The table; its rows and columns are numbered from 0 and leave the headers out.
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int columnCount() const override;
    int rowCount() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

    QAccessibleInterface* Header(std::size_t place) const;
    QAccessibleInterface* RowHeader(std::size_t row) const;

private:
    void Forget();

    GridView& view_;
    mutable std::map<int, QAccessible::Id> cells_;
};

}  // namespace clb
