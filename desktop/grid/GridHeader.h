// The captions above the grid's columns.
#pragma once
#include <QWidget>
#include <functional>

#include "controls/GridComponent.h"
#include "desktop/grid/GridLayout.h"

namespace clb {

/// Draws the captions above the grid's columns, which scroll sideways with the cells. If a caption
/// is too long for its column, the whole header is two lines high. The user drags the line to the
/// right of a caption to resize its column. A double click on that line fits the column to its
/// contents.
class GridHeader : public QWidget {
public:
    /// Called when the user drags or double clicks the line of a column, or clicks its caption.
    struct Actions {
        std::function<void(std::int32_t column, int width)> resize;
        std::function<void(std::int32_t column)> fit;
        std::function<void(std::int32_t column)> sort;
    };
    /// grid and layout are borrowed and outlive the header.
    GridHeader(const GridComponent& grid, const GridLayout& layout, Actions actions,
               QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    /// The width in pixels in which no word of the caption is cut.
    [[nodiscard]] int LeastWidth(std::int32_t column) const;
    /// The width in pixels that the caption needs.
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
    void DrawBeside(QPainter& painter) const;
    void DrawSort(QPainter& painter, const QRect& cell) const;
    void DrawCorner(QPainter& painter) const;

    const GridComponent& grid_;
    const GridLayout& layout_;
    Actions actions_;
    std::int32_t dragged_ = 0;  // column whose line is dragged; 0: none
    int dragOffset_ = 0;
    std::int32_t pressed_ = 0;  // column whose caption is pressed; 0: none
};

}  // namespace clb
