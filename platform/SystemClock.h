// The machine's clock, and one that is stopped.
#pragma once
#include <cstdint>
#include <ctime>
#include <string>

#include "ports/IClock.h"

namespace clb {

/// The machine's own clock, in the time zone of TZ or else of the system.
class SystemClock : public IClock {
public:
    [[nodiscard]] Date Now() const override;
    [[nodiscard]] std::uint32_t TickCount() const override;
    [[nodiscard]] modCommon::ZoneInformation Zone() const override;
};

/// A clock that is stopped at one local date and time. The tick count runs on. The zone is the
/// machine's zone at that date and time.
class FixedClock : public IClock {
public:
    explicit FixedClock(const Date& now) : now_(now) {}
    [[nodiscard]] Date Now() const override { return now_; }
    [[nodiscard]] std::uint32_t TickCount() const override { return system_.TickCount(); }
    [[nodiscard]] modCommon::ZoneInformation Zone() const override;

private:
    Date now_;
    SystemClock system_;
};

/// Checks the moment at which a clock is to be stopped: a message if the text is not of the form
/// YYYY-MM-DDThh:mm:ss, else empty.
[[nodiscard]] std::string CheckMoment(const std::string& text);

/// The machine's time zone at a moment, from the C library. If the zone has no daylight time in
/// that year, its state is Unknown and both extra biases are 0.
[[nodiscard]] modCommon::ZoneInformation ZoneAt(std::time_t moment);

}  // namespace clb
