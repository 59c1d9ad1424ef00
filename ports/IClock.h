// The machine's clock, as the program needs it.
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
    [[nodiscard]] virtual Date Now() const = 0;
    /// Milliseconds since an arbitrary start, wrapping at 32 bits. Runs on even if the clock is
    /// stopped.
    [[nodiscard]] virtual std::uint32_t TickCount() const = 0;
    [[nodiscard]] virtual modCommon::ZoneInformation Zone() const = 0;
};

}  // namespace clb
