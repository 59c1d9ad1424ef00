// Dates of OFX.
#pragma once
#include <optional>
#include <string_view>

#include "base/Date.h"

namespace clb {

/// Reads the day of a stamp "yyyymmdd", which a time "hhmmss.xxx" and a zone "[-5:EST]" may follow.
/// It is the day that is written, whatever the zone; the result has no time. Returns nothing for
/// other texts, for days that do not exist and for years before 1900 or after 2199.
[[nodiscard]] std::optional<Date> ReadOfxDay(std::string_view text);

/// Whether a stamp is empty or filled with zeros: the bank gives no date.
[[nodiscard]] bool IsNoStamp(std::string_view text);

}  // namespace clb
