// Months as people type them.
#pragma once
#include <optional>
#include <string_view>

#include "typed/TypedDate.h"

namespace clb {

/// Reads a month as a person types it. Returns nothing for any other text, and for a text that may
/// mean several months.
///
/// - "t" or "today": the present month.
/// - "3" or "mar": that month of the shown year.
/// - "2024": the shown month in that year.
/// - "2024-3", "2024/03", "3/2024", "03.2024", "3-24", "24-3": the year may come first or last,
/// also
///   with two digits if these cannot be a month.
/// - "mar 24", "March 2024", "2024 mar": years of two digits as in dates.
std::optional<Month> ReadTypedMonth(std::string_view text, const DateContext& context,
                                    const DateHabits& habits);

}  // namespace clb
