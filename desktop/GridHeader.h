#pragma once
#include <QWidget>

#include "controls/GridComponent.h"
#include "desktop/GridLayout.h"

namespace clb {

/// The captions above the grid's columns; they move sideways with the cells. One that is too long
/// for its column makes all of the header two lines high.
class GridHeader : public QWidget {
public:
    /// Both borrowed; they outlive the header.
    GridHeader(const GridComponent& grid, const GridLayout& layout, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont CaptionFont() const;
    bool NeedsTwoLines() const;
    void DrawCaption(QPainter& painter, const GridLayout::Span& span) const;
    void DrawCorner(QPainter& painter) const;

    const GridComponent& grid_;
    const GridLayout& layout_;
};

}  // namespace clb
