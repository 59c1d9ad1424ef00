#include "controls/Control.h"

#include "controls/ControlVisitor.h"

namespace clb {

void Control::Accept(ControlVisitor& visitor)
{
    visitor.Other(*this);
}

void Control::Enabled(bool enabled)
{
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    NotifyChanged();
}

void Control::Place(const Bounds& place)
{
    if (place_ == place)
        return;
    place_ = place;
    NotifyChanged();
}

bool Control::MayLoseFocus()
{
    bool cancel = false;
    validate_.emit(cancel);
    return !cancel;
}

void Control::ReportFocus(bool got)
{
    (got ? gotFocus_ : lostFocus_).emit();
}

}  // namespace clb
