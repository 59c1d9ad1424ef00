// Amounts of money.
#pragma once
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace clb {

/// An amount of money: a whole number of 1/10000 units in 64 bits, so about +-922 trillion units.
/// All arithmetic is exact. A result out of range throws Overflow() and never wraps.
class Money {
public:
    constexpr Money() = default;
    static constexpr Money FromScaled(std::int64_t tenThousandths)
    {
        Money m;
        m.scaled_ = tenThousandths;
        return m;
    }
    /// Converts whole units. Throws Overflow() beyond the range.
    static Money FromUnits(std::int64_t units);
    /// Rounds half to even at the fourth decimal. Throws Overflow() beyond the range and for NaN.
    static Money FromDouble(double units);
    /// Reads a numeric text (see Numeric.h). Rounds half to even at the fourth decimal. Throws
    /// TypeMismatch() for other texts, Overflow() beyond the range.
    static Money Parse(std::string_view text);
    /// Like Parse, but returns nothing if the text is not numeric. Throws Overflow() beyond the
    /// range.
    static std::optional<Money> TryParse(std::string_view text);

    [[nodiscard]] constexpr std::int64_t Scaled() const { return scaled_; }
    [[nodiscard]] double ToDouble() const { return static_cast<double>(scaled_) / 10000.0; }
    [[nodiscard]] constexpr bool IsZero() const { return scaled_ == 0; }
    [[nodiscard]] constexpr bool IsNegative() const { return scaled_ < 0; }

    /// Plain decimal without grouping or trailing zeros: "-45.5", "100", "0".
    [[nodiscard]] std::string ToText() const;
    /// Two decimals with digit grouping, half away from zero: "1,234.50", "-0.01". An amount that
    /// rounds to zero has no sign.
    [[nodiscard]] std::string Grouped() const;
    /// "$" and two decimals without grouping, half away from zero: "$45.50", "-$45.50".
    [[nodiscard]] std::string Dollars() const;

    /// Half of the amount, rounded half to even to two decimals.
    [[nodiscard]] Money HalfToCents() const;

    friend Money operator+(Money a, Money b);
    friend Money operator-(Money a, Money b);
    Money operator-() const { return Money() - *this; }
    Money& operator+=(Money other) { return *this = *this + other; }
    friend constexpr auto operator<=>(Money, Money) = default;

private:
    std::int64_t scaled_ = 0;
};

}  // namespace clb
