#pragma once
#include <QWidget>
#include <functional>

#include "controls/GridComponent.h"
#include "desktop/grid/GridLayout.h"

namespace clb {

/// The captions above the grid's columns; they move sideways with the cells. One that is too long
/// for its column makes all of the header two lines high. The line right of a caption is dragged to
/// make its column narrower or wider; a double click fits the column to what it shows.
class GridHeader : public QWidget {
public:
    /// What dragging and double clicking a column's line do.
    struct Actions {
        std::function<void(std::int32_t column, int width)> resize;
        std::function<void(std::int32_t column)> fit;
    };
    /// grid and layout are borrowed and outlive the header.
    GridHeader(const GridComponent& grid, const GridLayout& layout, Actions actions,
               QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    /// Width that the caption needs.
    [[nodiscard]] int CaptionWidth(std::int32_t column) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QFont CaptionFont() const;
    [[nodiscard]] bool NeedsTwoLines() const;
    void DrawCaption(QPainter& painter, const GridLayout::Span& span) const;
    void DrawCorner(QPainter& painter) const;

    const GridComponent& grid_;
    const GridLayout& layout_;
    Actions actions_;
    std::int32_t dragged_ = 0;  // column whose line is dragged; 0: none
    int dragOffset_ = 0;
};

}  // namespace clb
