#include "desktop/window/SplitHandle.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "desktop/look/GridColors.h"

namespace clb {

namespace {

constexpr int kReach = 3;  // pixels to either side of the border that take the mouse
constexpr int kKeyStep = 16;
constexpr int kEverything = 1 << 20;

}  // namespace

SplitHandle::SplitHandle(Border border, QWidget* parent)
    : QWidget(parent), border_(std::move(border))
{
    setObjectName(QStringLiteral("SplitHandle"));
    setAccessibleName(QStringLiteral("Border between tree and grid"));
    setCursor(Qt::SplitHCursor);
}

void SplitHandle::Place(const QRect& area)
{
    setGeometry(border_.read() - kReach + 1, area.top(), 2 * kReach, area.height());
    raise();
}

void SplitHandle::TakeFocus()
{
    if (!hasFocus())
        before_ = QApplication::focusWidget();
    setFocus(Qt::ShortcutFocusReason);
}

void SplitHandle::mousePressEvent(QMouseEvent* event)
{
    grip_ = mapToParent(event->position().toPoint()).x() - border_.read();
}

void SplitHandle::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        border_.write(mapToParent(event->position().toPoint()).x() - grip_);
}

void SplitHandle::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
        case Qt::Key_Left: return border_.write(border_.read() - kKeyStep);
        case Qt::Key_Right: return border_.write(border_.read() + kKeyStep);
        case Qt::Key_Home: return border_.write(0);
        case Qt::Key_End: return border_.write(kEverything);
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
            if (before_)
                before_->setFocus(Qt::OtherFocusReason);
            return;
        default: QWidget::keyPressEvent(event);
    }
}

void SplitHandle::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void SplitHandle::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

void SplitHandle::paintEvent(QPaintEvent* /*event*/)
{
    if (hasFocus())
        QPainter(this).fillRect(rect().adjusted(1, 0, -1, 0), GridColors(palette()).accent);
}

}  // namespace clb
