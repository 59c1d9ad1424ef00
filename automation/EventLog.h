// The log of events that the driver asks for.
#pragma once
#include "json/ValueJson.h"

namespace clb {

/// The events since the driver last asked, in order.
class EventLog {
public:
    /// event: an object whose member "event" names the kind.
    void Add(Json event) { events_.push_back(std::move(event)); }
    /// Returns the events as an array and empties the log.
    [[nodiscard]] Json Take()
    {
        Json taken = std::move(events_);
        events_ = Json::array();
        return taken;
    }

private:
    Json events_ = Json::array();
};

}  // namespace clb
