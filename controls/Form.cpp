#include "controls/Form.h"

#include <algorithm>

namespace clb {

Form::Form(std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption))
{
}

void Form::Caption(const std::string& caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    changed_.emit();
}

void Form::Enabled(bool enabled)
{
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    enabledChanged_.emit();
}

Control* Form::Find(const std::string& name) const
{
    const auto found =
        std::find_if(controls_.begin(), controls_.end(),
                     [&name](const Control* control) { return control->Name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

bool Form::Focus(Control& control)
{
    if (focus_ == &control)
        return true;
    Control* const before = focus_;
    if (before && !before->MayLoseFocus())
        return false;
    focus_ = &control;
    if (before)
        before->ReportFocus(false);
    focusChanged_.emit();
    control.ReportFocus(true);
    return true;
}

void Form::ShowModal(IModalHost& host)
{
    visible_ = true;
    host.Run(*this);
    visible_ = false;
}

void Form::Hide()
{
    if (!visible_)
        return;
    visible_ = false;
    hidden_.emit();
}

}  // namespace clb
