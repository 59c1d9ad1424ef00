#pragma once
#include "json/ValueJson.h"

namespace clb {

/// What happened since it was last asked for, in order.
class EventLog {
public:
    /// An event is an object whose "event" names its kind.
    void Add(Json event) { events_.push_back(std::move(event)); }
    /// The events as an array; they are then forgotten.
    Json Take()
    {
        Json taken = std::move(events_);
        events_ = Json::array();
        return taken;
    }

private:
    Json events_ = Json::array();
};

}  // namespace clb
