#pragma once
#include <sigc++/sigc++.h>

#include <cstdint>
#include <string>

namespace clb {

class ControlVisitor;

/// Where a control stands in its form, in pixels of the form's inner area.
struct Bounds {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const Bounds&) const = default;
};

/// What every control has, drawn or not: a name, a place, and whether it takes input.
/// A control is a model: whoever draws it listens to Changed and reads the state again.
class Control {
public:
    explicit Control(std::string name) : name_(std::move(name)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// Hands the control to the visitor as the kind that it is.
    virtual void Accept(ControlVisitor& visitor);

    const std::string& Name() const { return name_; }

    bool Enabled() const { return enabled_; }
    void Enabled(bool enabled);
    /// Whether the user can give it the focus. Labels and bars never take it.
    virtual bool TakesFocus() const { return enabled_; }

    const Bounds& Place() const { return place_; }
    void Place(const Bounds& place);

    /// Raised after any shown state changed.
    sigc::signal<void()>& Changed() { return changed_; }
    /// Raised when the control has got or lost the focus.
    sigc::signal<void()>& GotFocus() { return gotFocus_; }
    sigc::signal<void()>& LostFocus() { return lostFocus_; }
    /// Raised before the control loses the focus; a handler that sets the flag keeps it there.
    sigc::signal<void(bool&)>& Validate() { return validate_; }

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
