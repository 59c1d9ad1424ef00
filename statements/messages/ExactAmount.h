// Amounts of bank messages, read exactly.
#pragma once
#include <optional>
#include <string_view>

#include "base/Money.h"

namespace clb {

/// Reads an amount without a sign, with a point or a comma before the decimals: "12.50", "12,",
/// ",5", "00012,50". One of the two marks may group the thousands if the other one follows. Returns
/// nothing for other texts, for an amount that money cannot hold exactly (more than four decimals,
/// zeros after them aside) or that is out of range, and if the mark is not the one of the format
/// and three digits follow it: it may group thousands.
[[nodiscard]] std::optional<Money> ExactAmount(std::string_view text, char markOfFormat);

}  // namespace clb
