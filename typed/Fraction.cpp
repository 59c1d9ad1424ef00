#include "typed/Fraction.h"

#include <cstdint>

#include "base/RuntimeError.h"

namespace clb {
namespace {

constexpr std::int64_t kScale = 10000;  // of Money
constexpr std::int64_t kCent = kScale / 100;

__extension__ using Wide = __int128;

Wide Times(Wide a, Wide b)
{
    Wide product = 0;
    if (__builtin_mul_overflow(a, b, &product))
        throw Overflow();
    return product;
}

Wide Plus(Wide a, Wide b)
{
    Wide sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        throw Overflow();
    return sum;
}

Wide GreatestDivisor(Wide a, Wide b)
{
    while (b != 0) {
        const Wide rest = a % b;
        a = b;
        b = rest;
    }
    return a < 0 ? -a : a;
}

}  // namespace

Fraction Fraction::Of(Money amount)
{
    return Reduced(amount.Scaled(), kScale);
}

Fraction Fraction::Reduced(Wide numerator, Wide denominator)
{
    const Wide divisor = GreatestDivisor(numerator, denominator) * (denominator < 0 ? -1 : 1);
    Fraction reduced;
    reduced.numerator_ = numerator / divisor;
    reduced.denominator_ = denominator / divisor;
    return reduced;
}

Money Fraction::ToCents() const
{
    const Wide cents = Times(numerator_, kScale / kCent);
    Wide whole = cents / denominator_;
    const Wide rest = cents % denominator_;
    if (Times(rest < 0 ? -rest : rest, 2) >= denominator_)
        whole += numerator_ < 0 ? -1 : 1;
    const Wide scaled = Times(whole, kCent);
    if (scaled > INT64_MAX || scaled < INT64_MIN)
        throw Overflow();
    return Money::FromScaled(static_cast<std::int64_t>(scaled));
}

Fraction operator+(const Fraction& a, const Fraction& b)
{
    return Fraction::Reduced(
        Plus(Times(a.numerator_, b.denominator_), Times(b.numerator_, a.denominator_)),
        Times(a.denominator_, b.denominator_));
}

Fraction operator-(const Fraction& a, const Fraction& b)
{
    Fraction negative = b;
    negative.numerator_ = -negative.numerator_;
    return a + negative;
}

Fraction operator*(const Fraction& a, const Fraction& b)
{
    return Fraction::Reduced(Times(a.numerator_, b.numerator_),
                             Times(a.denominator_, b.denominator_));
}

Fraction operator/(const Fraction& a, const Fraction& b)
{
    return Fraction::Reduced(Times(a.numerator_, b.denominator_),
                             Times(a.denominator_, b.numerator_));
}

}  // namespace clb
