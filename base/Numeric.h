#pragma once
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/RuntimeError.h"

namespace clb {

/// A number as a text writes it, kept as decimal digits so that nothing is lost before rounding.
///
/// Numeric texts, whatever the machine's locale: blanks around; one sign in front or behind, or
/// parentheses for negative; one "$"; a period as decimal separator; "," only as proper thousands
/// grouping (one to three digits, then groups of exactly three); an exponent.
class Numeric {
public:
    /// Nothing when the text is not numeric.
    static std::optional<Numeric> Read(std::string_view text);

    /// The value times 10^decimals, half to even. Throws Overflow() beyond 64 bits.
    [[nodiscard]] std::int64_t Scaled(int decimals) const;
    struct Truncated {
        std::int64_t whole = 0;
        bool exact = true;  ///< nothing but zeros was cut off
    };
    /// The value times 10^decimals, cut off towards zero. Returns nothing beyond 64 bits.
    [[nodiscard]] std::optional<Truncated> Truncate(int decimals) const;
    /// Throws Overflow() if no double is that large.
    [[nodiscard]] double ToDouble() const;

    /// "1234567" becomes "1,234,567"; takes digits only.
    static std::string GroupDigits(std::string digits);
    /// 1234567.5 with two decimals is "1,234,567.50"; takes finite numbers of every size.
    static std::string Grouped(double number, int decimals);

private:
    /// The first digits as a number, with zeros after the last one. Nothing beyond 64 bits.
    [[nodiscard]] std::optional<std::uint64_t> Leading(std::int64_t digits) const;
    /// Whether there is another digit than 0 from this one on.
    [[nodiscard]] bool HasMore(std::size_t from) const
    {
        return digits_.find_first_not_of('0', from) != std::string::npos;
    }
    /// The number with the sign. Nothing beyond 64 bits.
    [[nodiscard]] std::optional<std::int64_t> Signed(std::uint64_t magnitude) const;

    bool negative_ = false;
    std::string digits_;         // significant digits without leading zeros; empty for zero
    std::int64_t exponent_ = 0;  // value = 0.digits * 10^exponent
};

/// The same number in fewer bits. Throws Overflow() where they do not hold it.
template <std::signed_integral Whole>
Whole NarrowTo(std::int64_t number)
{
    if (!std::in_range<Whole>(number))
        throw Overflow();
    return static_cast<Whole>(number);
}

/// Whether the text is numeric.
bool IsNumeric(std::string_view text);
/// Whole number, half to even. Throws TypeMismatch() for other texts, Overflow() beyond 32 bits.
std::int32_t ParseLong(std::string_view text);
/// Throws TypeMismatch() for other texts and Overflow() for what no double holds.
double ParseDouble(std::string_view text);
/// The shortest decimal text that reads back as the same number ("0.1", "1E+20").
std::string ToText(double value);
/// As above in single precision.
std::string ToText(float value);

}  // namespace clb
