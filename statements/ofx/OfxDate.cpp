#include "statements/ofx/OfxDate.h"

#include <algorithm>

namespace clb {
namespace {

constexpr std::size_t kDayDigits = 8;
constexpr std::size_t kStampDigits = 14;
// Beyond them the digits are something else, such as seconds since 1970.
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2199;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

int Number(std::string_view digits)
{
    int number = 0;
    for (const char c : digits)
        number = number * 10 + (c - '0');
    return number;
}

/// Whether what follows the digits can be a part of a time or a zone.
bool IsTimeOrZone(std::string_view rest)
{
    return rest.empty() ||
           std::string_view(" .,:[+-TZ").find(rest.front()) != std::string_view::npos;
}

}  // namespace

std::optional<Date> ReadOfxDay(std::string_view text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    const auto digits = static_cast<std::size_t>(end - text.begin());
    if (digits < kDayDigits || digits > kStampDigits || digits % 2 != 0 ||
        !IsTimeOrZone(text.substr(digits)))
        return std::nullopt;
    const int year = Number(text.substr(0, 4));
    if (year < kFirstYear || year > kLastYear)
        return std::nullopt;
    return Date::Of(year, Number(text.substr(4, 2)), Number(text.substr(6, 2)));
}

bool IsNoStamp(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c == '0'; });
}

}  // namespace clb
