// Amounts as people type them into a cell: numbers and calculations.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "base/Money.h"

namespace clb {

/// How amounts are written where the user lives.
struct AmountHabits {
    char decimal = '.';  ///< '.' or ','
    /// What stands between thousands: UTF-8, such as ".", "'" or a narrow space. A plain space and
    /// an apostrophe are always taken.
    std::string group = ",";
};

/// A typed amount, or why it is none.
struct TypedAmount {
    std::optional<Money> value;
    /// Whether it was refused because it can mean two amounts.
    bool ambiguous = false;
    /// A sentence. Empty if there is a value.
    std::string refusal;
};

/// Reads a number by the fixed rule (see Numeric.h) or in the user's own form, or a calculation of
/// such numbers with + - * / and parentheses. Calculations are exact; a result that has more than
/// two decimals is rounded to two, half away from zero.
///
/// A number that the fixed rule and the user's form read differently ("1,234") is refused with a
/// sentence that names both, never guessed. Refused too are a division by zero, a result out of
/// range, and a date (three numbers with "/" between them and a year).
TypedAmount ReadTypedAmount(std::string_view text, const AmountHabits& habits);

}  // namespace clb
