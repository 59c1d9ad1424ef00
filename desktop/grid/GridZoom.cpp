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
