#include "desktop/window/MonthWheel.h"

#include <QWheelEvent>
#include <QWidget>
#include <cstdlib>
#include <utility>

namespace clb {

MonthWheel::MonthWheel(QWidget& month, QWidget& year, Actions actions)
    : QObject(&month), month_(month), actions_(std::move(actions))
{
    month.installEventFilter(this);
    year.installEventFilter(this);
}

bool MonthWheel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return false;
    // The year box steps by itself.
    if (watched != &month_)
        return !actions_.rowSaved();
    Turn(static_cast<QWheelEvent*>(event)->angleDelta().y());
    return true;
}

void MonthWheel::Turn(int angle)
{
    // A wheel with fine steps changes the month after it has turned as far as one coarse step.
    constexpr int kStep = QWheelEvent::DefaultDeltasPerStep;
    turned_ += angle;
    for (; std::abs(turned_) >= kStep; turned_ -= turned_ > 0 ? kStep : -kStep) {
        if (!actions_.rowSaved()) {
            turned_ = 0;
            return;
        }
        actions_.step(turned_ > 0 ? -1 : 1);
    }
}

}  // namespace clb
