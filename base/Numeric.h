// Reads and writes numbers as text.
#pragma once
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/RuntimeError.h"

namespace clb {

/// A number read from a text, kept as decimal digits so that nothing is lost before rounding.
///
/// A numeric text may have spaces around it; one sign before or after the number, or parentheses
/// for a negative one; one "$"; a period as decimal separator; "," only between groups of thousands
/// (one to three digits, then groups of exactly three); an exponent. The machine's locale does not
/// matter.
class Numeric {
public:
    /// Returns nothing if the text is not numeric.
    static std::optional<Numeric> Read(std::string_view text);

    /// Returns the value times 10^decimals, rounded half to even. Throws Overflow() beyond 64 bits.
    [[nodiscard]] std::int64_t Scaled(int decimals) const;
    struct Truncated {
        std::int64_t whole = 0;
        bool exact = true;  ///< only zeros were cut off
    };
    /// Returns the value times 10^decimals, cut off towards zero, or nothing beyond 64 bits.
    [[nodiscard]] std::optional<Truncated> Truncate(int decimals) const;
    /// Throws Overflow() if no double is that large.
    [[nodiscard]] double ToDouble() const;

    /// Turns "1234567" into "1,234,567". The text must consist of digits.
    static std::string GroupDigits(std::string digits);
    /// Turns 1234567.5 with two decimals into "1,234,567.50". The number must be finite.
    static std::string Grouped(double number, int decimals);

private:
    /// Returns the first digits as a number, filled up with zeros, or nothing beyond 64 bits.
    [[nodiscard]] std::optional<std::uint64_t> Leading(std::int64_t digits) const;
    /// Whether a digit other than 0 follows from this position on.
    [[nodiscard]] bool HasMore(std::size_t from) const
    {
        return digits_.find_first_not_of('0', from) != std::string::npos;
    }
    /// Returns the number with the sign, or nothing beyond 64 bits.
    [[nodiscard]] std::optional<std::int64_t> Signed(std::uint64_t magnitude) const;

    bool negative_ = false;
    std::string digits_;         // significant digits without leading zeros; empty for zero
    std::int64_t exponent_ = 0;  // value = 0.digits * 10^exponent
};

/// Converts a number to a smaller type. Throws Overflow() if it does not fit.
template <std::signed_integral Whole>
Whole NarrowTo(std::int64_t number)
{
    if (!std::in_range<Whole>(number))
        throw Overflow();
    return static_cast<Whole>(number);
}

/// Whether the text is numeric.
bool IsNumeric(std::string_view text);
/// Reads a number and rounds it half to even. Throws TypeMismatch() for other texts, Overflow()
/// beyond 32 bits.
std::int32_t ParseLong(std::string_view text);
/// Throws TypeMismatch() for other texts, Overflow() beyond the range of double.
double ParseDouble(std::string_view text);
/// Returns the shortest decimal text that reads back as the same number ("0.1", "1E+20").
std::string ToText(double value);
/// The same for single precision.
std::string ToText(float value);

}  // namespace clb
