#include "statements/messages/Mt940Line.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "base/Text.h"
#include "statements/messages/ExactAmount.h"
#include "statements/messages/RowText.h"

namespace clb {
namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}
bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

int Number(std::string_view digits)
{
    int number = 0;
    for (const char c : digits)
        number = number * 10 + (c - '0');
    return number;
}

/// Reads a text from its start, token by token.
class Cursor {
public:
    explicit Cursor(std::string_view text) : text_(text) {}
    std::string_view Digits()
    {
        return Take([](char c) { return IsDigit(c); });
    }
    std::string_view Amount()
    {
        Spaces();
        return Take([](char c) { return IsDigit(c) || c == ',' || c == '.'; });
    }
    std::string_view Letters(std::size_t most)
    {
        Spaces();
        std::size_t count = 0;
        return Take([&count, most](char c) { return IsLetter(c) && count++ < most; });
    }
    [[nodiscard]] std::string_view Rest() const { return text_; }

private:
    void Spaces()
    {
        while (!text_.empty() && text_[0] == ' ')
            text_.remove_prefix(1);
    }
    template <typename Fits>
    std::string_view Take(const Fits& fits)
    {
        std::size_t size = 0;
        while (size < text_.size() && fits(text_[size]))
            ++size;
        const std::string_view taken = text_.substr(0, size);
        text_.remove_prefix(size);
        return taken;
    }
    std::string_view text_;
};

int YearOf(std::string_view twoDigits)
{
    const int year = Number(twoDigits);
    return year + (year >= 80 ? 1900 : 2000);
}

/// The day with this month and day that is nearest to another one, for days around New Year.
std::optional<Date> Nearest(std::string_view monthAndDay, int year, const std::optional<Date>& to)
{
    const int month = Number(monthAndDay.substr(0, 2));
    const int day = Number(monthAndDay.substr(2));
    if (!to)
        return Date::Of(year, month, day);
    std::optional<Date> nearest;
    for (const int candidate : {year - 1, year, year + 1}) {
        const auto date = Date::Of(candidate, month, day);
        if (date && (!nearest ||
                     std::abs(date->Days() - to->Days()) < std::abs(nearest->Days() - to->Days())))
            nearest = date;
    }
    return nearest;
}

/// The value date. Banks that count 30 days in every month write 29 and 30 February for its last
/// day.
std::optional<Date> ValueDate(std::string_view digits)
{
    const std::string_view monthAndDay = digits.substr(2);
    const bool isLast = monthAndDay == "0229" || monthAndDay == "0230";
    const auto date = ReadMt940Date(digits);
    if (date || !isLast)
        return date;
    const auto march = Date::Of(YearOf(digits.substr(0, 2)), 3, 1);
    return march ? std::optional(Date::FromDays(march->Days() - 1)) : std::nullopt;
}

/// Value date and entry date. Some banks write years of four digits.
void ReadDates(std::string_view digits, Mt940Line& line)
{
    if (digits.size() == 8 || digits.size() == 12) {
        line.value = Date::Of(Number(digits.substr(0, 4)), Number(digits.substr(4, 2)),
                              Number(digits.substr(6, 2)));
        if (!line.value || line.value->Year() < 1980 || line.value->Year() > 2079) {
            line.value.reset();
            return;
        }
        digits.remove_prefix(2);
    }
    if (digits.size() != 6 && digits.size() != 10)
        return;
    line.value = ValueDate(digits.substr(0, 6));
    const std::string_view entry = digits.substr(6);
    if (entry.empty() || entry == "0000")
        line.booked = line.value;
    else
        line.booked = Nearest(entry, YearOf(digits.substr(0, 2)), line.value);
}

/// Marks: C, D, and after R (reversal) or E (expected) both again. A letter of the currency may
/// follow.
struct Mark {
    bool credit = false;
    bool expected = false;
};

std::optional<Mark> ReadMark(const std::string& letters)
{
    static constexpr std::array<std::string_view, 6> kMarks = {"RC", "RD", "EC", "ED", "C", "D"};
    for (const std::string_view mark : kMarks) {
        if (!letters.starts_with(mark) || letters.size() > mark.size() + 1)
            continue;
        const bool turned = mark[0] == 'R';
        return Mark{(mark.back() == 'C') != turned, mark[0] == 'E'};
    }
    return {};
}

/// Type and references after the amount.
void ReadReferences(std::string_view rest, Mt940Line& line)
{
    while (!rest.empty() && rest[0] == ' ')
        rest.remove_prefix(1);
    if (rest.size() < 4 || !IsLetter(rest[0]))
        return;
    line.type = std::string(rest.substr(0, 4));
    rest.remove_prefix(4);
    const std::size_t slashes = rest.find("//");
    line.reference = Squeezed(rest.substr(0, slashes));
    if (slashes != std::string_view::npos)
        line.bankReference = Squeezed(rest.substr(slashes + 2));
}

bool IsCurrency(std::string_view text)
{
    return text.size() == 3 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

}  // namespace

std::optional<Date> ReadMt940Date(std::string_view digits)
{
    if (digits.size() != 6 || !std::all_of(digits.begin(), digits.end(), IsDigit))
        return {};
    return Date::Of(YearOf(digits.substr(0, 2)), Number(digits.substr(2, 2)),
                    Number(digits.substr(4, 2)));
}

Mt940Line ReadMt940Line(std::string_view content)
{
    Mt940Line line;
    const std::size_t end = std::min(content.find_first_of("\r\n"), content.size());
    line.details = std::string(content.substr(end));
    Cursor cursor(content.substr(0, end));
    ReadDates(cursor.Digits(), line);
    const auto mark = ReadMark(ToUpperAscii(cursor.Letters(4)));
    const auto amount = ExactAmount(cursor.Amount(), ',');
    if (mark && amount)
        line.amount = mark->credit ? *amount : -*amount;
    line.expected = mark && mark->expected;
    ReadReferences(cursor.Rest(), line);
    return line;
}

std::optional<Mt940Balance> ReadMt940Balance(std::string_view content)
{
    Cursor cursor(content.substr(0, content.find_first_of("\r\n")));
    const std::string mark = ToUpperAscii(cursor.Letters(1));
    const std::string_view date = cursor.Digits();
    Mt940Balance balance;
    std::optional<Money> amount;
    if (cursor.Rest().empty() || !IsLetter(cursor.Rest()[0])) {
        // Without a currency the digits of the amount follow those of the date.
        amount = ExactAmount(content.substr(std::min<std::size_t>(7, content.size()),
                                            content.find_first_of(" \r\n", 7) - 7),
                             ',');
    } else {
        balance.currency = ToUpperAscii(cursor.Letters(3));
        amount = ExactAmount(cursor.Amount(), ',');
    }
    if ((mark != "C" && mark != "D") || !amount)
        return {};
    balance.date = ReadMt940Date(date.substr(0, 6));
    balance.amount = mark == "C" ? *amount : -*amount;
    return balance;
}

std::string Mt940Currency(std::string_view content)
{
    Cursor cursor(content);
    (void)cursor.Digits();
    const std::string currency(cursor.Letters(3));
    return IsCurrency(currency) ? currency : "";
}

StatementAccount ReadMt940Account(std::string_view content)
{
    const std::size_t end = std::min(content.find_first_of("\r\n"), content.size());
    StatementAccount account;
    std::string number = Squeezed(content.substr(0, end));
    const std::string after = Squeezed(content.substr(end));
    if (number.size() > 4 && IsCurrency(std::string_view(number).substr(number.size() - 3)) &&
        (IsDigit(number[number.size() - 4]) || number[number.size() - 4] == ' ')) {
        account.currency = number.substr(number.size() - 3);
        number = Squeezed(number.substr(0, number.size() - 3));
    }
    const std::size_t slash = number.find('/');
    if (slash != std::string::npos && slash + 1 < number.size()) {
        account.bank = number.substr(0, slash);
        // Two banks may have accounts of the same number.
        if (IsIban(std::string_view(number).substr(slash + 1)))
            number = number.substr(slash + 1);
    } else if (after.find(' ') == std::string::npos && (after.size() == 8 || after.size() == 11)) {
        account.bank = after;
    }
    account.number = number;
    return account;
}

}  // namespace clb
