#pragma once
#include <cstdint>

#include "base/Date.h"
#include "base/modCommon.h"

namespace clb {

/// The machine's clock and time zone.
class IClock {
public:
    virtual ~IClock() = default;
    /// Local date and time.
    virtual Date Now() const = 0;
    /// Milliseconds since some start, wrapping at 32 bits; runs on when the clock is held still.
    virtual std::uint32_t TickCount() const = 0;
    virtual modCommon::ZoneInformation Zone() const = 0;
};

}  // namespace clb
