// What all controls have in common.
#pragma once
#include <cstdint>
#include <string>

#include "controls/Event.h"

namespace clb {

class ControlVisitor;

/// Where a control is in its form, in pixels of the form's inner area.
struct Bounds {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const Bounds&) const = default;
};

/// What every control has, drawn or not: a name, a place, and whether it takes input. A control is
/// a model: the code that draws it connects to Changed and reads the state again.
class Control {
public:
    explicit Control(std::string name) : name_(std::move(name)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// Hands the control to the visitor as the kind that it is.
    virtual void Accept(ControlVisitor& visitor);

    [[nodiscard]] const std::string& Name() const { return name_; }

    [[nodiscard]] bool Enabled() const { return enabled_; }
    void Enabled(bool enabled);
    /// Whether the user can give it the focus. Labels and bars never take it.
    [[nodiscard]] virtual bool TakesFocus() const { return enabled_; }

    [[nodiscard]] const Bounds& Place() const { return place_; }
    void Place(const Bounds& place);

    /// Asks whether the control may lose the focus (Validate): false if a handler keeps it there.
    bool MayLoseFocus();
    /// Raises GotFocus or LostFocus. To be called by the form that moves the focus.
    void ReportFocus(bool got);

    /// Raised after any shown state changed.
    Event<void()> Changed() { return changed_; }
    /// Raised after the control got or lost the focus.
    Event<void()> GotFocus() { return gotFocus_; }
    Event<void()> LostFocus() { return lostFocus_; }
    /// Raised before the control loses the focus. A handler that sets the flag keeps it there.
    Event<void(bool&)> Validate() { return validate_; }

protected:
    void NotifyChanged() { changed_.emit(); }

private:
    std::string name_;
    bool enabled_ = true;
    Bounds place_;
    sigc::signal<void()> changed_;
    sigc::signal<void()> gotFocus_;
    sigc::signal<void()> lostFocus_;
    sigc::signal<void(bool&)> validate_;
};

}  // namespace clb
