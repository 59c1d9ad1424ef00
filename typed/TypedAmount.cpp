#include "typed/TypedAmount.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "typed/Fraction.h"

namespace clb {
namespace {

constexpr const char* kNoNumber = "Please enter a number, for example 1,234.50.";
constexpr const char* kTooLarge = "This number is too large for the column.";
constexpr const char* kByZero = "This divides by zero.";
constexpr const char* kDate = "This is a date. Please enter a number, for example 1,234.50.";

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// What people copy from other places, in the form that the rules below know.
std::string Plain(std::string_view text)
{
    constexpr std::array<std::pair<std::string_view, std::string_view>, 9> kSame = {{
        {"\u00A0", " "},
        {"\u202F", " "},
        {"\u2009", " "},
        {"\u2019", "'"},
        {"\u2212", "-"},
        {"\u00D7", "*"},
        {"\u00F7", "/"},
        {"\u20AC", ""},
        {"\u00A3", ""},
    }};
    std::string plain(text);
    for (const auto& [sign, same] : kSame)
        plain = Replace(plain, sign, same);
    return std::string(Trim(plain));
}

/// The digits of a whole number whose thousands may be separated, or nothing.
std::optional<std::string> WithoutGroups(std::string_view whole, std::string_view group)
{
    std::string digits;
    std::string used;
    std::size_t run = 0;  // digits since the last separator
    for (std::size_t at = 0; at < whole.size();) {
        if (IsDigit(whole[at])) {
            digits += whole[at++];
            ++run;
            continue;
        }
        std::string mark(1, whole[at]);
        if (whole.substr(at, group.size()) == group)
            mark = group;
        else if (mark != " " && mark != "'")
            return std::nullopt;
        if (used.empty() ? run == 0 || run > 3 : run != 3 || used != mark)
            return std::nullopt;
        used = mark;
        run = 0;
        at += mark.size();
    }
    if (!used.empty() && run != 3)
        return std::nullopt;
    return digits;
}

/// Reads a number in the user's form. Signs and "$" are those of the fixed rule.
std::optional<Money> ReadOwn(std::string_view text, const AmountHabits& habits)
{
    const std::string numeric = std::string("0123456789'") + habits.decimal + habits.group;
    const std::size_t begin = text.find_first_of(numeric);
    const std::size_t end = text.find_last_of("0123456789" + std::string(1, habits.decimal));
    if (begin == std::string_view::npos || end == std::string_view::npos || end < begin)
        return std::nullopt;
    const std::string_view core = text.substr(begin, end + 1 - begin);
    const std::size_t mark = core.find(habits.decimal);
    const auto whole = WithoutGroups(core.substr(0, mark), habits.group);
    const std::string_view decimals =
        mark == std::string_view::npos ? std::string_view() : core.substr(mark + 1);
    if (!whole || decimals.find_first_not_of("0123456789") != std::string_view::npos ||
        (whole->empty() && decimals.empty()))
        return std::nullopt;
    return Money::TryParse(std::string(text.substr(0, begin)) + (whole->empty() ? "0" : *whole) +
                           "." + (decimals.empty() ? "0" : std::string(decimals)) +
                           std::string(text.substr(end + 1)));
}

/// A form of the amount that every rule reads alike: three decimals could be a group of thousands.
std::string Unmistakable(Money amount)
{
    std::string text = amount.ToText();
    const std::size_t point = text.find('.');
    if (point != std::string::npos && text.size() - point == 4)
        text += '0';
    return text;
}

TypedAmount Refused(std::string sentence, bool ambiguous = false)
{
    return {std::nullopt, ambiguous, std::move(sentence)};
}

/// Returns neither a value nor a refusal if the text is not one number.
TypedAmount ReadNumber(const std::string& text, const AmountHabits& habits)
{
    const auto fixed = Money::TryParse(text);
    const auto own = ReadOwn(text, habits);
    if (fixed && own && *fixed != *own)
        return Refused("\"" + text + "\" can mean " + own->ToText() + " or " + fixed->ToText() +
                           ". Please enter " + Unmistakable(*own) + " or " + Unmistakable(*fixed) +
                           ".",
                       true);
    return {fixed ? fixed : own, false, {}};
}

/// Three numbers with "/" between them, one of them a year.
bool IsDate(std::string_view text)
{
    const std::vector<std::string> parts = Split(text, '/');
    if (parts.size() != 3)
        return false;
    bool year = false;
    for (const std::string& part : parts) {
        const std::string_view digits = Trim(part);
        if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos)
            return false;
        year = year || digits.size() == 4;
    }
    return year;
}

/// sum := product { ("+" | "-") product };  product := factor { ("*" | "/") factor };
/// factor := { "+" | "-" } ( number | "(" sum ")" )
class Calculation {
public:
    Calculation(std::string_view text, const AmountHabits& habits) : text_(text), habits_(habits) {}

    TypedAmount Result()
    {
        try {
            const Fraction sum = Sum();
            Skip();
            if (!refusal_.empty())
                return Refused(refusal_, ambiguous_);
            if (at_ != text_.size())
                return Refused(kNoNumber);
            return {sum.ToCents(), false, {}};
        } catch (const RuntimeError&) {
            return Refused(kTooLarge);
        }
    }

private:
    static constexpr int kDeepest = 100;

    void Skip()
    {
        while (at_ < text_.size() && text_[at_] == ' ')
            ++at_;
    }

    bool Take(char mark)
    {
        Skip();
        if (at_ == text_.size() || text_[at_] != mark)
            return false;
        ++at_;
        return true;
    }

    Fraction Refuse(const std::string& sentence)
    {
        if (refusal_.empty())
            refusal_ = sentence;
        at_ = text_.size();
        return {};
    }

    Fraction Sum()
    {
        Fraction sum = Product();
        for (;;) {
            if (Take('+'))
                sum = sum + Product();
            else if (Take('-'))
                sum = sum - Product();
            else
                return sum;
        }
    }

    Fraction Product()
    {
        Fraction product = Factor();
        for (;;) {
            if (Take('*')) {
                product = product * Factor();
            } else if (Take('/')) {
                const Fraction by = Factor();
                product = by.IsZero() ? Refuse(kByZero) : product / by;
            } else {
                return product;
            }
        }
    }

    Fraction Factor()
    {
        bool negative = false;
        for (;;) {
            if (Take('-'))
                negative = !negative;
            else if (!Take('+'))
                break;
        }
        const Fraction value = Take('(') ? InParentheses() : Number();
        return negative ? Fraction() - value : value;
    }

    Fraction InParentheses()
    {
        if (++depth_ > kDeepest)
            return Refuse(kNoNumber);
        const Fraction sum = Sum();
        --depth_;
        return Take(')') ? sum : Refuse(kNoNumber);
    }

    Fraction Number()
    {
        Skip();
        const std::size_t begin = at_;
        at_ = text_.find_first_of("+-*/()", at_);
        if (at_ == std::string_view::npos)
            at_ = text_.size();
        const std::string number(Trim(text_.substr(begin, at_ - begin)));
        if (number.empty() || (!IsDigit(number.front()) && number.front() != '.' &&
                               number.front() != habits_.decimal))
            return Refuse(kNoNumber);
        const TypedAmount read = ReadNumber(number, habits_);
        ambiguous_ = ambiguous_ || read.ambiguous;
        if (!read.value)
            return Refuse(read.refusal.empty() ? kNoNumber : read.refusal);
        return Fraction::Of(*read.value);
    }

    std::string_view text_;
    const AmountHabits& habits_;
    std::size_t at_ = 0;
    int depth_ = 0;
    bool ambiguous_ = false;
    std::string refusal_;
};

}  // namespace

TypedAmount ReadTypedAmount(std::string_view text, const AmountHabits& habits)
{
    const std::string plain = Plain(text);
    try {
        TypedAmount number = ReadNumber(plain, habits);
        if (number.value || !number.refusal.empty())
            return number;
    } catch (const RuntimeError&) {
        return Refused(kTooLarge);
    }
    if (IsDate(plain))
        return Refused(kDate);
    return Calculation(plain, habits).Result();
}

}  // namespace clb
