#include "desktop/input/FocusBinder.h"

#include <QFocusEvent>

#include "desktop/input/UserEvents.h"

namespace clb {

FocusBinder::FocusBinder(Form& form, UserEvents& events) : form_(form), events_(events)
{
    form_.FocusChanged().connect(sigc::track_obj([this] { Sync(); }, *this));
}

void FocusBinder::Add(Control& control, QWidget& widget, const std::vector<QWidget*>& parts)
{
    // Only Tab moves the toolkit's focus by itself. A click asks the form first.
    if (widget.focusPolicy() != Qt::NoFocus)
        widget.setFocusPolicy(Qt::TabFocus);
    widgets_[&control] = &widget;
    Watch(widget, control);
    for (QWidget* part : parts)
        Watch(*part, control);
}

void FocusBinder::Watch(QWidget& widget, Control& control)
{
    controls_[&widget] = &control;
    widget.installEventFilter(this);
}

void FocusBinder::Sync()
{
    const auto found = widgets_.find(form_.Focus());
    if (found == widgets_.end() || found->second == nullptr || found->second->hasFocus())
        return;
    found->second->setFocus(Qt::OtherFocusReason);
}

bool FocusBinder::Ask(Control& control)
{
    bool moved = false;
    events_.Run([&] { moved = form_.Focus(control); });
    return moved;
}

void FocusBinder::FocusCame(Control& control, Qt::FocusReason reason)
{
    if (form_.Focus() == &control)
        return;
    const bool asked = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                       reason == Qt::ShortcutFocusReason;
    if (!asked || !Ask(control))
        QMetaObject::invokeMethod(
            this, [this] { Sync(); }, Qt::QueuedConnection);
}

bool FocusBinder::eventFilter(QObject* watched, QEvent* event)
{
    const auto found = controls_.find(watched);
    if (found == controls_.end())
        return false;
    if (event->type() == QEvent::MouseButtonPress) {
        if (!Ask(*found->second))
            return true;
        Sync();
    }
    if (event->type() == QEvent::FocusIn)
        FocusCame(*found->second, static_cast<QFocusEvent*>(event)->reason());
    return false;
}

}  // namespace clb
