#include "statements/form/DateScanner.h"

#include <algorithm>
#include <bit>

#include "statements/form/DateWords.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

using DateText::Order;

constexpr std::size_t kLongest = 80;
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2199;

int Value(std::string_view digits)
{
    int value = 0;
    for (const char digit : digits)
        value = value * 10 + (digit - '0');
    return value;
}

int FullYear(std::string_view digits)
{
    const int year = Value(digits);
    if (digits.size() > 2)
        return year;
    return year < 70 ? 2000 + year : 1900 + year;
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// Words within a date that say nothing: "3 de marzo de 2021", "3rd of March".
bool IsFiller(std::string_view word)
{
    return IsOneOf(word, {"de", "del", "of", "the", "den", "di", "do", "st", "nd", "rd", "th", "er",
                          "º", "ª", "e"});
}

/// Signs for year, month and day of East Asia.
bool IsYearSign(std::string_view word)
{
    return word == "年" || word == "년";
}

bool IsMonthOrDaySign(std::string_view word)
{
    return IsOneOf(word, {"月", "日", "월", "일", "号"});
}

bool IsTime(int hour, int minute, int second)
{
    return hour <= 24 && minute <= 59 && second <= 60;
}

}  // namespace

std::optional<Date> WrittenDate::Checked(std::string_view year, int month,
                                         std::string_view day) const
{
    if (day.empty() || day.size() > 2 ||
        (year.size() != 2 && year.size() != 4 && !(year.size() == 1 && shortestYears_)))
        return std::nullopt;
    const int full = FullYear(year);
    const auto date =
        full < kFirstYear || full > kLastYear ? std::nullopt : Date::Of(full, month, Value(day));
    // The zero date was a Saturday.
    if (date && hasWeekday_ && ((weekdays_ >> ((date->Days() + 6) % 7)) & 1U) == 0)
        return std::nullopt;
    return date;
}

std::optional<Date> WrittenDate::Named() const
{
    if (!std::has_single_bit(months_))
        return std::nullopt;
    const int month = std::countr_zero(months_) + 1;
    const bool yearFirst = numbers_[0].size() > 2 || Value(numbers_[0]) > 31;
    return yearFirst ? Checked(numbers_[0], month, numbers_[1])
                     : Checked(numbers_[1], month, numbers_[0]);
}

std::optional<Date> WrittenDate::Numbered(Order order) const
{
    const auto& [first, second, third] = numbers_;
    const auto month = [](std::string_view digits) {
        return digits.size() > 2 ? 0 : Value(digits);
    };
    if (first.size() == 4 || yearFirst_)
        return Checked(first, month(second), third);
    if (order == Order::YearMonthDay)
        return first.size() == 2 ? Checked(first, month(second), third) : std::nullopt;
    if (order == Order::MonthDayYear)
        return Checked(third, month(first), second);
    return Checked(third, month(second), first);
}

std::optional<Date> WrittenDate::Packed(Order order) const
{
    const std::string_view digits = numbers_[0];
    const std::size_t year = digits.size() - 4;
    if (order == Order::YearMonthDay)
        return Checked(digits.substr(0, year), Value(digits.substr(year, 2)),
                       digits.substr(year + 2));
    if (order == Order::MonthDayYear)
        return Checked(digits.substr(4), Value(digits.substr(0, 2)), digits.substr(2, 2));
    return Checked(digits.substr(4), Value(digits.substr(2, 2)), digits.substr(0, 2));
}

std::optional<Date> WrittenDate::In(Order order) const
{
    if (months_ != 0)
        return Named();
    return count_ == 1 ? Packed(order) : Numbered(order);
}

DateScanner::DateScanner(std::string_view text)
    : rest_(text.size() > 4 * kLongest ? std::string_view() : TrimSpaces(text))
{
}

std::optional<WrittenDate> DateScanner::Scan()
{
    if (rest_.empty() || rest_.size() > kLongest)
        return std::nullopt;
    while (!Complete())
        if (!Part())
            return std::nullopt;
    return Rest() ? std::optional(date_) : std::nullopt;
}

bool DateScanner::Complete() const
{
    if (date_.months_ != 0)
        return date_.count_ == 2;
    if (date_.count_ == 1)
        return date_.numbers_[0].size() == 8 || date_.numbers_[0].size() == 6;
    return date_.count_ == 3;
}

bool DateScanner::Part()
{
    const ScannedChar next = FirstChar(rest_);
    if (next.size == 0)
        return false;
    if (IsDigit(next.code))
        return Number();
    return IsLetter(next.code) ? Name() : Divider();
}

std::string_view DateScanner::Digits()
{
    std::size_t end = 0;
    while (end < rest_.size() && IsDigit(static_cast<unsigned char>(rest_[end])))
        ++end;
    const std::string_view digits = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return digits;
}

std::string_view DateScanner::Letters()
{
    std::size_t end = 0;
    for (ScannedChar next = FirstChar(rest_); IsLetter(next.code) && next.size > 0;
         next = FirstChar(rest_.substr(end)))
        end += next.size;
    const std::string_view letters = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return letters;
}

bool DateScanner::Number()
{
    const std::string_view whole = rest_;
    std::string_view digits = Digits();
    // A number before a colon is an hour.
    if (!rest_.empty() && rest_.front() == ':')
        return false;
    if (date_.count_ == 0 && date_.months_ == 0 && (digits.size() == 14 || digits.size() == 12)) {
        rest_ = whole.substr(8);
        digits = whole.substr(0, 8);
        if (!TimeDigits())
            return false;
    }
    const bool packed =
        date_.count_ == 0 && date_.months_ == 0 && (digits.size() == 8 || digits.size() == 6);
    if (!packed && digits.size() != 1 && digits.size() != 2 && digits.size() != 4)
        return false;
    date_.numbers_[date_.count_++] = digits;
    return true;
}

bool DateScanner::Name()
{
    const bool afterNumber = date_.count_ > 0;
    const std::string_view word = Letters();
    if (afterNumber && (IsYearSign(word) || IsMonthOrDaySign(word))) {
        date_.yearFirst_ = date_.yearFirst_ || (IsYearSign(word) && date_.count_ == 1);
        return true;
    }
    const std::uint16_t months = MonthsNamed(word);
    if (months != 0 && date_.months_ == 0) {
        earlier_ = word;
        date_.months_ = months;
        return true;
    }
    // "mar. 3 mars 2021": the first of two names was a weekday.
    if (months != 0) {
        date_.months_ = months;
        return Weekday(earlier_);
    }
    return (afterNumber && IsFiller(word)) || Weekday(word);
}

bool DateScanner::Weekday(std::string_view word)
{
    const std::uint8_t days = WeekdaysNamed(word);
    if (days == 0 || date_.hasWeekday_)
        return false;
    date_.hasWeekday_ = true;
    date_.weekdays_ = days;
    return true;
}

bool DateScanner::Divider()
{
    if (date_.count_ == 0 && date_.months_ == 0 && !date_.hasWeekday_)
        return false;
    int marks = 0;
    char32_t last = 0;
    for (ScannedChar next = FirstChar(rest_); next.size > 0; next = FirstChar(rest_)) {
        if (IsDigit(next.code) || IsLetter(next.code))
            break;
        const bool mark = next.code == U'.' || next.code == U'/' || next.code == U',' ||
                          next.code == U'\'' || next.code == 0x2019 || IsDash(next.code);
        if (!mark && !IsSpace(next.code))
            return false;
        if (mark && next.code == last)
            return false;
        marks += mark ? 1 : 0;
        date_.points_ += next.code == U'.' ? 1 : 0;
        last = mark ? next.code : last;
        date_.shortestYears_ =
            date_.shortestYears_ || next.code == U'/' || next.code == U'\'' || next.code == 0x2019;
        rest_.remove_prefix(next.size);
    }
    return marks <= 2;
}

bool DateScanner::Rest()
{
    while (!rest_.empty())
        if (!RestPart())
            return false;
    return time_ || !wantsTime_;
}

bool DateScanner::RestPart()
{
    const ScannedChar next = FirstChar(rest_);
    if (IsDigit(next.code))
        return Time();
    if ((next.code == U'+' || next.code == U'-') && rest_.size() > 1 && Zone())
        return true;
    if (next.code == U'(' || next.code == U'[')
        return Bracket();
    if (IsLetter(next.code))
        return RestWord();
    if (!IsSpace(next.code) && next.code != U',' && next.code != U'.' && next.code != U'/' &&
        next.code != U'-' && next.code != U'|')
        return false;
    rest_.remove_prefix(next.size);
    return true;
}

/// Takes "1205" or "120500".
bool DateScanner::TimeDigits()
{
    const std::string_view digits = Digits();
    time_ = true;
    Fraction();
    return (digits.size() == 4 || digits.size() == 6) &&
           IsTime(Value(digits.substr(0, 2)), Value(digits.substr(2, 2)), Value(digits.substr(4)));
}

/// Takes fractions of a second.
void DateScanner::Fraction()
{
    if (rest_.size() < 2 || (rest_[0] != '.' && rest_[0] != ',' && rest_[0] != ':') ||
        !IsDigit(static_cast<unsigned char>(rest_[1])))
        return;
    rest_.remove_prefix(1);
    Digits();
}

bool DateScanner::Time()
{
    if (time_)
        return false;
    const std::string_view whole = rest_;
    const std::string_view hour = Digits();
    if (hour.size() > 2) {
        rest_ = whole;
        return date_.count_ == 1 && TimeDigits();
    }
    int parts[2] = {0, 0};
    int count = 0;
    for (; count < 2 && !rest_.empty(); ++count) {
        const ScannedChar mark = FirstChar(rest_);
        if (mark.code != U':' && mark.code != U'.' && mark.code != U'h' && mark.code != 0x6642 &&
            mark.code != 0x65F6 && mark.code != 0x5206 && mark.code != 0xFF1A)
            break;
        const std::string_view before = rest_;
        rest_.remove_prefix(mark.size);
        const std::string_view digits = Digits();
        if (digits.size() != 2) {
            rest_ = before;
            break;
        }
        parts[count] = Value(digits);
    }
    time_ = true;
    if (count == 2)
        Fraction();
    return count > 0 && IsTime(Value(hour), parts[0], parts[1]);
}

/// Takes "+01:00", "+0100" or "-5". Takes nothing from other texts.
bool DateScanner::Zone()
{
    const std::string_view before = rest_;
    rest_.remove_prefix(1);
    const std::string_view hours = Digits();
    const bool colon = rest_.size() > 2 && rest_.front() == ':';
    if (colon)
        rest_.remove_prefix(1);
    const std::string_view minutes = colon ? Digits() : std::string_view();
    const bool ends = rest_.empty() || IsSpace(FirstChar(rest_).code) || rest_.front() == '(';
    if (!zone_ && ends && !hours.empty() && hours.size() <= (colon ? 2U : 4U) &&
        minutes.size() == (colon ? 2U : 0U) && (colon || time_)) {
        zone_ = true;
        return true;
    }
    rest_ = before;
    return false;
}

/// Takes a weekday or a zone in brackets: "(Wed)", "[-5:EST]".
bool DateScanner::Bracket()
{
    const char close = rest_.front() == '(' ? ')' : ']';
    const std::size_t end = rest_.find(close);
    if (end == std::string_view::npos)
        return false;
    const std::string_view inside = TrimSpaces(rest_.substr(1, end - 1));
    rest_.remove_prefix(end + 1);
    return Weekday(inside) || time_;
}

bool DateScanner::RestWord()
{
    const std::string_view word = Letters();
    if (IsOneOf(word,
                {"日", "일", "号", "г", "года", "р", "Uhr", "uhr", "h", "分", "秒", "Z", "m"}))
        return true;
    if (IsOneOf(word, {"kl", "at", "um", "à", "alle", "ore", "o", "a", "las", "T"})) {
        wantsTime_ = true;
        return true;
    }
    if (Weekday(word))
        return true;
    if (!time_)
        return false;
    // Half of the day, or a zone: letters with '/' or '_', as "PST" or "Europe/Berlin".
    std::string_view zone = word;
    while (!rest_.empty() && (rest_.front() == '/' || rest_.front() == '_')) {
        rest_.remove_prefix(1);
        zone = Letters();
    }
    return zone.size() <= 20;
}

}  // namespace clb
