// A cell of the grid for screen readers.
#pragma once
#include <QAccessible>
#include <cstdint>

namespace clb {

class AccessibleGrid;
class GridComponent;
class GridView;

/// A cell of the grid, the header of a column (row 0), or the header of a row (place 0).
class AccessibleCell : public QAccessibleInterface,
                       public QAccessibleTableCellInterface,
                       public QAccessibleActionInterface {
public:
    /// row counts from 1; place counts from 1 among the shown columns. All arguments are borrowed.
    AccessibleCell(const AccessibleGrid& table, GridView& view, GridComponent& grid,
                   std::size_t row, std::size_t place)
        : table_(table), view_(view), grid_(grid), row_(row), place_(place)
    {
    }

    [[nodiscard]] std::size_t Row() const { return row_; }
    [[nodiscard]] std::size_t Place() const { return place_; }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override
    {
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override
    {
        return nullptr;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] bool isSelected() const override;
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override;
    [[nodiscard]] int columnIndex() const override { return static_cast<int>(place_) - 1; }
    [[nodiscard]] int rowIndex() const override { return static_cast<int>(row_) - 1; }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override
    {
        return {};
    }

private:
    [[nodiscard]] bool IsCell() const { return row_ != 0 && place_ != 0; }
    [[nodiscard]] std::int32_t Column() const;
    [[nodiscard]] QString CellText() const;
    [[nodiscard]] QString Tip() const;
    [[nodiscard]] QString HeaderText(QAccessible::Text kind) const;
    [[nodiscard]] QString Name() const;
    [[nodiscard]] QString Description() const;
    void AddFolding(QAccessible::State& state) const;

    const AccessibleGrid& table_;
    GridView& view_;
    GridComponent& grid_;
    std::size_t row_;
    std::size_t place_;
};

}  // namespace clb
