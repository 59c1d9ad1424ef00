#pragma once
#include "ports/IClock.h"

#include <cstdint>
#include <ctime>

namespace clb {

/// The machine's own clock, in the time zone of TZ or of the system.
class SystemClock : public IClock {
public:
    Date Now() const override;
    std::uint32_t TickCount() const override;
    modCommon::ZoneInformation Zone() const override;
};

/// A clock that stands at one local date and time. The tick count runs on, and the zone is what the
/// machine's zone was or will be at that moment.
class FixedClock : public IClock {
public:
    explicit FixedClock(const Date& now) : now_(now) {}
    Date Now() const override { return now_; }
    std::uint32_t TickCount() const override { return system_.TickCount(); }
    modCommon::ZoneInformation Zone() const override;

private:
    Date now_;
    SystemClock system_;
};

/// What the C library knows of the machine's time zone at a moment. A zone that has no daylight
/// time in that year is in no known state, and both of its extra biases are 0.
modCommon::ZoneInformation ZoneAt(std::time_t moment);

}  // namespace clb
