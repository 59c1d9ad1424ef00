#pragma once
#include <QWidget>

#include "controls/GridComponent.h"
#include "desktop/GridLayout.h"

namespace clb {

/// The captions above the grid's columns; they move sideways with the cells.
class GridHeader : public QWidget {
public:
    /// Both borrowed; they outlive the header.
    GridHeader(const GridComponent& grid, const GridLayout& layout, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const GridComponent& grid_;
    const GridLayout& layout_;
};

}  // namespace clb
