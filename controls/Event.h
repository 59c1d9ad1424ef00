// A signal as others see it.
#pragma once
#include <sigc++/sigc++.h>

#include <utility>

namespace clb {

/// Lets others connect to a signal. Only the signal's owner can raise it.
template <class Signature>
class Event {
public:
    Event(sigc::signal<Signature>& signal) : signal_(&signal) {}

    template <class Handler>
    sigc::connection connect(Handler&& handler)
    {
        return signal_->connect(std::forward<Handler>(handler));
    }

    /// Whether nobody is connected.
    [[nodiscard]] bool empty() const { return signal_->empty(); }

private:
    sigc::signal<Signature>* signal_;
};

}  // namespace clb
