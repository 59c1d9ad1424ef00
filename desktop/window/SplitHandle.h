#pragma once
#include <QPointer>
#include <QWidget>
#include <functional>

namespace clb {

/// The border between tree and grid, to be dragged. With the focus on it the arrow keys move it,
/// Home and End as far as it goes; Enter and Escape go back to where the focus was.
class SplitHandle : public QWidget {
public:
    /// What it moves: where the border is, and where it shall be, in pixels from the parent's left.
    struct Border {
        std::function<int()> read;
        std::function<void(int)> write;
    };
    SplitHandle(Border border, QWidget* parent);

    /// Stands over the border, from top to bottom of the area.
    void Place(const QRect& area);
    /// Takes the focus, and remembers who had it.
    void TakeFocus();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Border border_;
    QPointer<QWidget> before_;
    int grip_ = 0;  // from the border to where the mouse took it
};

}  // namespace clb
