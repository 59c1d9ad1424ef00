#include "base/Money.h"

#include <cmath>

#include "base/Numeric.h"
#include "base/RuntimeError.h"

namespace clb {
namespace {

constexpr std::int64_t kScale = 10000;

std::uint64_t Magnitude(std::int64_t value)
{
    return value < 0 ? ~static_cast<std::uint64_t>(value) + 1 : static_cast<std::uint64_t>(value);
}

/// The amount in cents, half away from zero, without its sign.
std::uint64_t CentsAwayFromZero(std::int64_t scaled)
{
    return (Magnitude(scaled) + 50) / 100;
}

std::string TwoDigits(std::uint64_t value)
{
    return {static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)};
}

}  // namespace

Money Money::FromUnits(std::int64_t units)
{
    std::int64_t scaled = 0;
    if (__builtin_mul_overflow(units, kScale, &scaled))
        throw Overflow();
    return FromScaled(scaled);
}

Money Money::FromDouble(double units)
{
    // Long double carries 64 bits of mantissa, enough for every scaled amount.
    const long double scaled = std::nearbyint(static_cast<long double>(units) * kScale);
    if (!(scaled >= -9223372036854775808.0L && scaled < 9223372036854775808.0L))
        throw Overflow();
    return FromScaled(static_cast<std::int64_t>(scaled));
}

Money Money::Parse(std::string_view text)
{
    const auto money = TryParse(text);
    if (!money)
        throw TypeMismatch();
    return *money;
}

std::optional<Money> Money::TryParse(std::string_view text)
{
    const auto number = Numeric::Read(text);
    if (!number)
        return std::nullopt;
    return FromScaled(number->Scaled(4));
}

std::string Money::ToText() const
{
    const std::uint64_t magnitude = Magnitude(scaled_);
    std::string text = (scaled_ < 0 ? "-" : "") + std::to_string(magnitude / kScale);
    if (const std::uint64_t fraction = magnitude % kScale; fraction != 0) {
        std::string digits = std::to_string(fraction + kScale).substr(1);
        digits.erase(digits.find_last_not_of('0') + 1);
        text += "." + digits;
    }
    return text;
}

std::string Money::Grouped() const
{
    const std::uint64_t cents = CentsAwayFromZero(scaled_);
    return (scaled_ < 0 && cents != 0 ? "-" : "") +
           Numeric::GroupDigits(std::to_string(cents / 100)) + "." + TwoDigits(cents % 100);
}

std::string Money::Dollars() const
{
    const std::uint64_t cents = CentsAwayFromZero(scaled_);
    return (scaled_ < 0 && cents != 0 ? "-$" : "$") + std::to_string(cents / 100) + "." +
           TwoDigits(cents % 100);
}

Money Money::HalfToCents() const
{
    // Half an amount in cents is scaled / 200; a tie is exactly between two cents.
    const std::uint64_t magnitude = Magnitude(scaled_);
    std::uint64_t cents = magnitude / 200;
    const std::uint64_t rest = magnitude % 200;
    if (rest > 100 || (rest == 100 && cents % 2 == 1))
        ++cents;
    const auto scaled = static_cast<std::int64_t>(cents * 100);
    return FromScaled(scaled_ < 0 ? -scaled : scaled);
}

Money operator+(Money a, Money b)
{
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a.scaled_, b.scaled_, &sum))
        throw Overflow();
    return Money::FromScaled(sum);
}

Money operator-(Money a, Money b)
{
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(a.scaled_, b.scaled_, &difference))
        throw Overflow();
    return Money::FromScaled(difference);
}

}  // namespace clb
