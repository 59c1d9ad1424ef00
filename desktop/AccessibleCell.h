#pragma once
#include <QAccessible>
#include <cstdint>

namespace clb {

class AccessibleGrid;
class GridView;

/// A cell of the grid, a header of a column (row 0) or of a line (place 0) for screen readers.
class AccessibleCell : public QAccessibleInterface,
                       public QAccessibleTableCellInterface,
                       public QAccessibleActionInterface {
public:
    /// row from 1; place from 1 among the shown columns. Both borrowed.
    AccessibleCell(const AccessibleGrid& grid, GridView& view, std::size_t row, std::size_t place)
        : grid_(grid), view_(view), row_(row), place_(place)
    {
    }

    std::size_t Row() const { return row_; }
    std::size_t Place() const { return place_; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    int columnIndex() const override { return static_cast<int>(place_) - 1; }
    int rowIndex() const override { return static_cast<int>(row_) - 1; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    bool IsCell() const { return row_ != 0 && place_ != 0; }
    std::int32_t Column() const;
    QString CellText() const;
    QString Tip() const;
    void AddFolding(QAccessible::State& state) const;

    const AccessibleGrid& grid_;
    GridView& view_;
    std::size_t row_;
    std::size_t place_;
};

}  // namespace clb
