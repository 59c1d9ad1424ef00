#include "desktop/grid/GridZoom.h"

#include <QFont>
#include <QWheelEvent>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

namespace clb {

namespace {

constexpr int kStep = 10;

}  // namespace

GridZoom::GridZoom(QWidget& zoomed, QWidget& viewport) : zoomed_(zoomed)
{
    viewport.installEventFilter(this);
}

bool GridZoom::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() == QEvent::Wheel) {
        const auto& wheel = *static_cast<QWheelEvent*>(event);
        if (!wheel.modifiers().testFlag(Qt::ControlModifier))
            return false;
        Turn(wheel.angleDelta().y());
        return true;
    }
    const bool pressed = event->type() == QEvent::MouseButtonPress &&
                         static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton;
    if (pressed)
        Toggle();
    return pressed;
}

void GridZoom::Percent(int percent)
{
    percent = std::clamp(percent, kLeast, kMost);
    if (percent == percent_)
        return;
    percent_ = percent;
    if (percent != kOrdinary)
        other_ = percent;
    QFont font;
    if (percent != kOrdinary) {
        const QFont& ordinary = zoomed_.parentWidget()->font();
        if (ordinary.pointSizeF() > 0)
            font.setPointSizeF(ordinary.pointSizeF() * percent / kOrdinary);
        else
            font.setPixelSize(std::max(1, ordinary.pixelSize() * percent / kOrdinary));
    }
    zoomed_.setFont(font);
}

void GridZoom::Step(int steps)
{
    Percent(percent_ + steps * kStep);
}

/// A whole notch of the wheel is a step; a fine wheel turns by parts of it.
void GridZoom::Turn(int angle)
{
    turned_ += angle;
    const int steps = turned_ / QWheelEvent::DefaultDeltasPerStep;
    turned_ -= steps * QWheelEvent::DefaultDeltasPerStep;
    Step(steps);
}

void GridZoom::Toggle()
{
    Percent(percent_ == kOrdinary ? other_ : kOrdinary);
}

}  // namespace clb
