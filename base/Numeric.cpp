#include "base/Numeric.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace clb {
namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Reads a numeric text from left to right. Each member consumes what it names.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
    [[nodiscard]] char Peek() const { return rest_.empty() ? '\0' : rest_.front(); }
    bool Take(char c)
    {
        if (Peek() != c || rest_.empty())
            return false;
        rest_.remove_prefix(1);
        return true;
    }
    void SkipBlanks()
    {
        while (Peek() == ' ' || Peek() == '\t')
            rest_.remove_prefix(1);
    }
    std::string_view Digits()
    {
        std::size_t n = 0;
        while (n < rest_.size() && IsDigit(rest_[n]))
            ++n;
        const auto digits = rest_.substr(0, n);
        rest_.remove_prefix(n);
        return digits;
    }

private:
    std::string_view rest_;
};

/// Consumes the digits before the period. Returns false if a comma is not between thousands.
bool TakeWhole(Scanner& in, std::string& digits)
{
    const auto first = in.Digits();
    digits = first;
    if (in.Peek() != ',')
        return true;
    if (first.empty() || first.size() > 3)
        return false;
    while (in.Take(',')) {
        const auto group = in.Digits();
        if (group.size() != 3)
            return false;
        digits += group;
    }
    return true;
}

bool TakeExponent(Scanner& in, std::int64_t& exponent)
{
    if (!in.Take('e') && !in.Take('E'))
        return true;
    const bool negative = in.Take('-');
    if (!negative)
        in.Take('+');
    const auto digits = in.Digits();
    if (digits.empty())
        return false;
    // Beyond this every value is zero or out of range. The bound keeps the sum in 64 bits.
    constexpr std::int64_t kBound = 1'000'000'000;
    for (const char c : digits)
        exponent = std::min(kBound, exponent * 10 + (c - '0'));
    if (negative)
        exponent = -exponent;
    return true;
}

/// Sign, currency mark and parenthesis around the number, in any order, each at most once.
struct Affixes {
    bool sign = false;
    bool negative = false;
    bool dollar = false;
    bool parenthesis = false;

    void TakePrefix(Scanner& in)
    {
        for (;;) {
            in.SkipBlanks();
            if (!sign && !parenthesis && (in.Peek() == '-' || in.Peek() == '+')) {
                sign = true;
                negative = in.Peek() == '-';
                in.Take(in.Peek());
            } else if (!dollar && in.Take('$')) {
                dollar = true;
            } else if (!parenthesis && !sign && in.Take('(')) {
                parenthesis = true;
            } else {
                return;
            }
        }
    }
    /// Consumes the suffix after the number. Returns false if a parenthesis is not closed.
    bool TakeSuffix(Scanner& in)
    {
        bool closed = false;
        for (;;) {
            in.SkipBlanks();
            if (!sign && !parenthesis && (in.Peek() == '-' || in.Peek() == '+')) {
                sign = true;
                negative = in.Peek() == '-';
                in.Take(in.Peek());
            } else if (!dollar && in.Take('$')) {
                dollar = true;
            } else if (parenthesis && !closed && in.Take(')')) {
                closed = true;
            } else {
                return closed == parenthesis;
            }
        }
    }
};

}  // namespace

std::optional<Numeric> Numeric::Read(std::string_view text)
{
    Scanner in(text);
    Affixes affixes;
    affixes.TakePrefix(in);

    std::string whole;
    if (!TakeWhole(in, whole))
        return std::nullopt;
    std::string_view fraction;
    if (in.Take('.'))
        fraction = in.Digits();
    if (whole.empty() && fraction.empty())
        return std::nullopt;
    std::int64_t exponent = 0;
    if (!TakeExponent(in, exponent) || !affixes.TakeSuffix(in) || !in.AtEnd())
        return std::nullopt;

    Numeric number;
    number.negative_ = affixes.negative || affixes.parenthesis;
    number.digits_ = whole;
    number.digits_ += fraction;
    number.exponent_ = exponent + static_cast<std::int64_t>(whole.size());
    const std::size_t zeros =
        std::min(number.digits_.find_first_not_of('0'), number.digits_.size());
    number.digits_.erase(0, zeros);
    number.exponent_ -= static_cast<std::int64_t>(zeros);
    return number;
}

std::optional<std::uint64_t> Numeric::Leading(std::int64_t digits) const
{
    if (digits > 19)
        return std::nullopt;
    std::uint64_t value = 0;
    for (std::size_t i = 0; std::cmp_less(i, digits); ++i)
        value = value * 10 + static_cast<std::uint64_t>(i < digits_.size() ? digits_[i] - '0' : 0);
    return value;
}

std::optional<std::int64_t> Numeric::Signed(std::uint64_t magnitude) const
{
    const std::uint64_t limit =
        static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) + (negative_ ? 1 : 0);
    if (magnitude > limit)
        return std::nullopt;
    return static_cast<std::int64_t>(negative_ ? ~magnitude + 1 : magnitude);
}

std::int64_t Numeric::Scaled(int decimals) const
{
    if (digits_.empty())
        return 0;
    const std::int64_t places = exponent_ + decimals;  // digits kept before rounding
    if (places < 0)
        return 0;
    auto value = Leading(places);
    if (!value)
        throw Overflow();
    const auto kept = static_cast<std::size_t>(places);
    if (kept < digits_.size()) {
        const bool above = digits_[kept] > '5' || (digits_[kept] == '5' && HasMore(kept + 1));
        if (above || (digits_[kept] == '5' && *value % 2 == 1))
            ++*value;
    }
    const auto scaled = Signed(*value);
    if (!scaled)
        throw Overflow();
    return *scaled;
}

std::optional<Numeric::Truncated> Numeric::Truncate(int decimals) const
{
    if (digits_.empty())
        return Truncated();
    const std::int64_t places = std::max<std::int64_t>(exponent_ + decimals, 0);
    const auto value = Leading(places);
    const auto whole = value ? Signed(*value) : std::nullopt;
    if (!whole)
        return std::nullopt;
    return Truncated{*whole, !HasMore(static_cast<std::size_t>(places))};
}

double Numeric::ToDouble() const
{
    if (digits_.empty())
        return 0;
    const std::string plain =
        (negative_ ? "-0." : "0.") + digits_ + "e" + std::to_string(exponent_);
    double value = 0;
    const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (read.ec == std::errc::result_out_of_range) {
        if (exponent_ < 0)
            return 0;
        throw Overflow();
    }
    return value;
}

std::string Numeric::GroupDigits(std::string digits)
{
    for (std::size_t at = digits.size(); at > 3;) {
        at -= 3;
        digits.insert(at, ",");
    }
    return digits;
}

std::string Numeric::Grouped(double number, int decimals)
{
    std::array<char, 400> text;  // the longest double has 309 digits before the period
    char* const end = std::to_chars(text.data(), text.data() + text.size(), std::abs(number),
                                    std::chars_format::fixed, decimals)
                          .ptr;
    char* const period = std::find(text.data(), end, '.');
    return (number < 0 ? "-" : "") + GroupDigits({text.data(), period}) + std::string(period, end);
}

bool IsNumeric(std::string_view text)
{
    return Numeric::Read(text).has_value();
}

std::int32_t ParseLong(std::string_view text)
{
    const auto number = Numeric::Read(text);
    if (!number)
        throw TypeMismatch();
    return NarrowTo<std::int32_t>(number->Scaled(0));
}

double ParseDouble(std::string_view text)
{
    const auto number = Numeric::Read(text);
    if (!number)
        throw TypeMismatch();
    return number->ToDouble();
}

namespace {

template <typename Real>
std::string Shortest(Real value)
{
    if (value == 0)
        return "0";
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    std::string text(buffer, end);
    for (char& c : text)
        if (c == 'e')
            c = 'E';
    return text;
}

}  // namespace

std::string ToText(double value)
{
    return Shortest(value);
}
std::string ToText(float value)
{
    return Shortest(value);
}

}  // namespace clb
