// The border between tree and grid.
#pragma once
#include <QPointer>
#include <QWidget>
#include <functional>

namespace clb {

/// The border between tree and grid, which the user drags. If it has the focus, the arrow keys move
/// it, Home and End move it as far as it goes, and Enter and Escape return the focus to where it
/// was.
class SplitHandle : public QWidget {
public:
    /// Reads and sets the place of the border, in pixels from the parent's left.
    struct Border {
        std::function<int()> read;
        std::function<void(int)> write;
    };
    SplitHandle(Border border, QWidget* parent);

    /// Puts the handle on the border, from the top to the bottom of the area.
    void Place(const QRect& area);
    /// Takes the focus and remembers which widget had it.
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
    int grip_ = 0;  // distance from the border to where the mouse took it
};

}  // namespace clb
