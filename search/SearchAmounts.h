// Amounts, ranges of amounts and sizes as a search takes them.
#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

namespace clb {

/// Amounts with their signs in 1/10000 of a unit, both ends included.
struct AmountRange {
    std::int64_t least = 0;
    std::int64_t most = 0;
    bool operator==(const AmountRange&) const = default;
};

/// What a word means as an amount, or as a comparison with one.
struct AmountCondition {
    bool read = false;                ///< whether it is one; else it is something else
    std::vector<AmountRange> ranges;  ///< met by an amount in any of them; none: never met
};

/// Reads a word as amounts:
///
/// - "49.90", "1,234.50", "1.234,50", "1'234.50", "€49.90": this amount of either sign.
/// - "-49.90", "+49.90", "49.90-", a minus of typography, "(49.90)": exactly this amount.
/// - ">100", ">=100", "<20", "<=20": by size, that is without the sign. "12..15", "12..", "..15":
///   by size, both ends included and in any order.
/// - If a number of these has a sign, the amounts are compared with their signs: "<-100",
///   "-20..-10", "-20..".
///
/// Both decimal marks are tried. Where both fit ("1,234"), either meaning is met; of a range the
/// ends have the same mark. A word with letters is not an amount, so codes of currencies and "CR"
/// are not; nor is a number with more than four decimals or out of the range of Money.
[[nodiscard]] AmountCondition AmountsOf(std::string_view word);

}  // namespace clb
