// Exact fractions for calculations with amounts.
#pragma once
#include "base/Money.h"

namespace clb {

/// A fraction of two whole numbers, always reduced. The operators throw Overflow() if a result does
/// not fit. What divides must not be zero.
class Fraction {
public:
    Fraction() = default;
    static Fraction Of(Money amount);

    [[nodiscard]] bool IsZero() const { return numerator_ == 0; }
    /// Rounded to two decimals, half away from zero; an amount that has no more than two is itself.
    /// Throws Overflow() beyond the range of Money.
    [[nodiscard]] Money ToCents() const;

    friend Fraction operator+(const Fraction& a, const Fraction& b);
    friend Fraction operator-(const Fraction& a, const Fraction& b);
    friend Fraction operator*(const Fraction& a, const Fraction& b);
    friend Fraction operator/(const Fraction& a, const Fraction& b);

private:
    __extension__ using Wide = __int128;

    static Fraction Reduced(Wide numerator, Wide denominator);

    Wide numerator_ = 0;
    Wide denominator_ = 1;  ///< positive
};

}  // namespace clb
