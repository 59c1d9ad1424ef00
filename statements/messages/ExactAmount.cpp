#include "statements/messages/ExactAmount.h"

#include <algorithm>
#include <string>

namespace clb {
namespace {

constexpr std::size_t kMaxDigits = 14;  // of whole units that money can hold in any case

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Appends the digits without the marks between thousands. Returns false if a mark is elsewhere.
bool Ungroup(std::string_view whole, char group, std::string& digits)
{
    const bool grouped = whole.find(group) != std::string_view::npos;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        const bool isPlace = grouped && at > 0 && (whole.size() - at) % 4 == 0;
        const bool isMark = whole[at] == group;
        if (isMark != isPlace)
            return false;
        if (!isMark)
            digits += whole[at];
    }
    return true;
}

std::optional<Money> Scaled(std::string_view whole, std::string_view decimals)
{
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    if (whole.size() > kMaxDigits)
        return {};
    std::int64_t scaled = 0;
    for (const char c : whole)
        scaled = scaled * 10 + (c - '0');
    for (std::size_t at = 0; at < 4; ++at)
        scaled = scaled * 10 + (at < decimals.size() ? decimals[at] - '0' : 0);
    const bool exact = decimals.find_first_not_of('0', 4) == std::string_view::npos;
    return exact ? std::optional(Money::FromScaled(scaled)) : std::nullopt;
}

}  // namespace

std::optional<Money> ExactAmount(std::string_view text, char markOfFormat)
{
    const std::size_t mark = text.find_last_of(".,");
    const std::string_view whole = text.substr(0, mark);
    std::string_view decimals;
    std::string digits;
    if (mark == std::string_view::npos) {
        digits = whole;
    } else {
        decimals = text.substr(mark + 1);
        if (!Ungroup(whole, text[mark] == '.' ? ',' : '.', digits))
            return {};
        if (decimals.size() == 3 && text[mark] != markOfFormat && digits.size() == whole.size())
            return {};
    }
    if (digits.empty() && decimals.empty())
        return {};
    if (!std::all_of(digits.begin(), digits.end(), IsDigit) ||
        !std::all_of(decimals.begin(), decimals.end(), IsDigit))
        return {};
    return Scaled(digits, decimals);
}

}  // namespace clb
