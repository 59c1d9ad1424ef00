#include "statements/form/AmountText.h"

#include <limits>

#include "statements/form/CurrencyMarks.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

constexpr std::size_t kLongest = 80;
constexpr int kDecimals = 4;

AmountMark SideOf(std::string_view word)
{
    if (word == "CR" || word == "Cr" || word == "cr" || word == "CR." || word == "Cr." ||
        word == "C" || word == "H")
        return AmountMark::Credit;
    if (word == "DR" || word == "Dr" || word == "dr" || word == "DR." || word == "Dr." ||
        word == "DB" || word == "D" || word == "S" || word == "OD")
        return AmountMark::Debit;
    return AmountMark::None;
}

bool HasBetweenDigits(std::string_view text, char mark)
{
    for (std::size_t i = 1; i + 1 < text.size(); ++i)
        if (text[i] == mark && IsDigit(static_cast<unsigned char>(text[i - 1])) &&
            IsDigit(static_cast<unsigned char>(text[i + 1])))
            return true;
    return false;
}

/// Goes through an amount's text from left to right.
class AmountScanner {
public:
    AmountScanner(std::string_view text, char decimal)
        : rest_(text), decimal_(decimal), group_(decimal == '.' ? ',' : '.')
    {
    }

    std::optional<WrittenAmount> Read()
    {
        if (!Before() || !Number() || !After())
            return std::nullopt;
        return Signed();
    }

private:
    [[nodiscard]] ScannedChar Next() const { return FirstChar(rest_); }

    /// Whether a number begins here: a digit, or the decimal mark and a digit.
    [[nodiscard]] bool AtNumber() const
    {
        if (!rest_.empty() && rest_.front() == decimal_)
            return rest_.size() > 1 && IsDigit(static_cast<unsigned char>(rest_[1]));
        return !rest_.empty() && IsDigit(static_cast<unsigned char>(rest_.front()));
    }

    bool Before()
    {
        while (!AtNumber()) {
            if (rest_.empty() || !Beside(true))
                return false;
        }
        return true;
    }

    bool After()
    {
        while (!rest_.empty())
            if (!Beside(false))
                return false;
        return open_ == closed_;
    }

    /// Takes a space, sign, parenthesis or word beside the number.
    bool Beside(bool before)
    {
        const ScannedChar next = Next();
        if (IsSpace(next.code))
            rest_.remove_prefix(next.size);
        else if (IsDash(next.code) || next.code == U'+' || next.code == 0xFF0B)
            return Sign(next);
        else if (next.code == U'(' || next.code == U')')
            return Parenthesis(before);
        else
            return Word(before);
        return true;
    }

    bool Sign(const ScannedChar& sign)
    {
        rest_.remove_prefix(sign.size);
        if (sign_ != AmountMark::None)
            return false;
        sign_ = IsDash(sign.code) ? AmountMark::Minus : AmountMark::Plus;
        return true;
    }

    bool Parenthesis(bool before)
    {
        bool& side = before ? open_ : closed_;
        if (side || (rest_.front() == '(') != before || sign_ != AmountMark::None)
            return false;
        rest_.remove_prefix(1);
        side = true;
        return true;
    }

    /// Takes a currency, or a word for the side of the account.
    bool Word(bool before)
    {
        const std::string_view word = TakeWord(before);
        const AmountMark side = SideOf(word);
        if (side != AmountMark::None && (!before || word.size() > 1)) {
            if (side_ != AmountMark::None)
                return false;
            side_ = side;
            return true;
        }
        if (!IsCurrencyMark(word) || (!currency_.empty() && closedCurrency_))
            return false;
        closedCurrency_ = !currency_.empty();
        currency_ = word;
        return true;
    }

    std::string_view TakeWord(bool before)
    {
        std::size_t end = 0;
        char32_t last = 0;
        while (end < rest_.size()) {
            const ScannedChar next = FirstChar(rest_.substr(end));
            if (IsDigit(next.code) || IsSpace(next.code) || IsDash(next.code) ||
                next.code == U'+' || next.code == U'(' || next.code == U')' || next.code == U',')
                break;
            // A point after a sign belongs to the number ("$.50"), after a letter to the word.
            if (before && next.code == U'.' && decimal_ == '.' && !IsLetter(last) &&
                end + 1 < rest_.size() && IsDigit(static_cast<unsigned char>(rest_[end + 1])))
                break;
            end += next.size;
            last = next.code;
        }
        const std::string_view word = rest_.substr(0, end);
        rest_.remove_prefix(end);
        return word;
    }

    /// Number of digits from a place on.
    [[nodiscard]] std::size_t DigitsAt(std::size_t at) const
    {
        std::size_t end = at;
        while (end < rest_.size() && IsDigit(static_cast<unsigned char>(rest_[end])))
            ++end;
        return end - at;
    }

    bool Number()
    {
        const bool leadingZero = rest_.front() == '0';
        const std::size_t first = DigitsAt(0);
        if (!Whole(first))
            return false;
        if (!Groups(first, leadingZero))
            return false;
        return Fraction();
    }

    /// Adds this many digits to the whole units.
    bool Whole(std::size_t count)
    {
        for (; count > 0; --count) {
            if (scaled_ > (std::numeric_limits<std::uint64_t>::max() - 9) / 10)
                return false;
            scaled_ = scaled_ * 10 + static_cast<std::uint64_t>(rest_.front() - '0');
            rest_.remove_prefix(1);
        }
        return true;
    }

    /// Whether the character can stand between groups of thousands.
    [[nodiscard]] bool IsGroupMark(char32_t code) const
    {
        return code == static_cast<unsigned char>(group_) || IsSpace(code) || code == U'\'' ||
               code == 0x2019 || code == 0x02BC || code == U'`' || code == 0xB4;
    }

    bool Groups(std::size_t first, bool leadingZero)
    {
        char32_t mark = 0;
        std::size_t last = 0;
        bool pairs = false;
        while (!rest_.empty()) {
            const ScannedChar next = Next();
            const std::size_t digits = DigitsAt(next.size);
            if (!IsGroupMark(next.code) || digits == 0)
                break;
            const char32_t kind = IsSpace(next.code) ? U' ' : next.code;
            if (digits > 3 || digits < 2 || (mark != 0 && (kind != mark || pairs != (last == 2))))
                return false;
            pairs = mark == 0 ? digits == 2 : pairs;
            mark = kind;
            last = digits;
            rest_.remove_prefix(next.size);
            if (!Whole(digits))
                return false;
        }
        if (mark == 0)
            return true;
        // Lakhs: pairs, then three digits at the end.
        return last == 3 && first >= 1 && first <= (pairs ? 2 : 3) && !leadingZero &&
               (!pairs || mark == U',');
    }

    bool Fraction()
    {
        if (rest_.empty() || (rest_.front() != '.' && rest_.front() != ','))
            return Scale(0);
        const std::size_t digits = DigitsAt(1);
        if (digits == 0)
            return NoDecimals();
        if (rest_.front() != decimal_)
            return false;
        rest_.remove_prefix(1);
        std::size_t kept = digits;
        while (kept > 0 && rest_[kept - 1] == '0')
            --kept;
        if (kept > kDecimals || !Whole(kept) || !Scale(static_cast<int>(kept)))
            return false;
        rest_.remove_prefix(digits - kept);
        return true;
    }

    /// Takes "5." and "5,-".
    bool NoDecimals()
    {
        const bool own = rest_.front() == decimal_;
        rest_.remove_prefix(1);
        bool dashes = false;
        for (ScannedChar next = Next(); IsDash(next.code); next = Next()) {
            rest_.remove_prefix(next.size);
            dashes = true;
        }
        return (own || dashes) && Scale(0);
    }

    /// Turns the digits so far, of which some are decimals, into ten-thousandths.
    bool Scale(int decimals)
    {
        for (int i = decimals; i < kDecimals; ++i) {
            if (scaled_ > std::numeric_limits<std::uint64_t>::max() / 10)
                return false;
            scaled_ *= 10;
        }
        return scaled_ <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    }

    [[nodiscard]] std::optional<WrittenAmount> Signed() const
    {
        AmountMark mark = open_ ? AmountMark::Minus : sign_;
        if ((open_ && sign_ != AmountMark::None) ||
            (side_ == AmountMark::Credit && mark == AmountMark::Minus) ||
            (side_ == AmountMark::Debit && mark == AmountMark::Plus))
            return std::nullopt;
        if (side_ != AmountMark::None)
            mark = side_;
        const auto amount = static_cast<std::int64_t>(scaled_);
        const bool negative = mark == AmountMark::Minus || mark == AmountMark::Debit;
        return WrittenAmount{Money::FromScaled(negative ? -amount : amount), mark, currency_};
    }

    std::string_view rest_;
    char decimal_;
    char group_;
    std::uint64_t scaled_ = 0;
    AmountMark sign_ = AmountMark::None;
    AmountMark side_ = AmountMark::None;
    bool open_ = false;
    bool closed_ = false;
    bool closedCurrency_ = false;  ///< a second currency has come
    std::string_view currency_;
};

}  // namespace

std::optional<WrittenAmount> ReadWrittenAmount(std::string_view text, char decimal)
{
    text = TrimSpaces(text);
    if (text.empty() || text.size() > kLongest)
        return std::nullopt;
    return AmountScanner(text, decimal).Read();
}

std::optional<Money> ReadAmount(std::string_view text, char decimal)
{
    const auto written = ReadWrittenAmount(text, decimal);
    return written ? std::optional(written->amount) : std::nullopt;
}

void DecimalMarks::Add(std::string_view text)
{
    const auto point = ReadAmount(text, '.');
    const auto comma = ReadAmount(text, ',');
    if (point && comma && *point != *comma)
        ++(HasBetweenDigits(text, '.') ? differPoint_ : differComma_);
    else if (point && comma)
        return;
    else if (point)
        ++point_;
    else if (comma)
        ++comma_;
}

std::vector<char> DecimalMarks::Possible() const
{
    std::vector<char> possible;
    if (comma_ == 0)
        possible.push_back('.');
    if (point_ == 0)
        possible.push_back(',');
    return possible;
}

bool DecimalMarks::Same() const
{
    return point_ == 0 && comma_ == 0 && differPoint_ == 0 && differComma_ == 0;
}

char DecimalMarks::Mark() const
{
    if ((differPoint_ == 0) == (differComma_ == 0))
        return '\0';
    return differPoint_ > 0 ? '.' : ',';
}

}  // namespace clb
