#include "search/SearchAmounts.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "statements/form/AmountText.h"
#include "statements/form/CurrencyMarks.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

/// A number of the search with what it means under one decimal mark.
struct Reading {
    std::int64_t amount = 0;  ///< never the least number of 64 bits
    bool sign = false;        ///< it was written
};

bool HasLetter(std::string_view text)
{
    while (!text.empty()) {
        const ScannedChar next = FirstChar(text);
        if (IsLetter(next.code))
            return true;
        text.remove_prefix(next.size);
    }
    return false;
}

std::size_t CurrencySigns(std::string_view text)
{
    std::size_t signs = 0;
    while (!text.empty()) {
        const ScannedChar next = FirstChar(text);
        if (IsCurrencySign(next.code))
            ++signs;
        text.remove_prefix(next.size);
    }
    return signs;
}

/// Whether a currency is one sign and nothing else, such as the dot of an abbreviation.
bool IsSign(std::string_view currency)
{
    const ScannedChar first = FirstChar(currency);
    return IsCurrencySign(first.code) && first.size == currency.size();
}

/// The word has no letters.
std::optional<Reading> Read(std::string_view word, char decimal)
{
    const auto written = ReadWrittenAmount(word, decimal);
    if (!written || (!written->currency.empty() && !IsSign(written->currency)) ||
        CurrencySigns(word) > 1)
        return std::nullopt;
    return Reading{written->amount.Scaled(), written->mark != AmountMark::None};
}

void Add(AmountCondition& condition, std::int64_t least, std::int64_t most)
{
    const AmountRange range{least, most};
    if (least <= most && std::find(condition.ranges.begin(), condition.ranges.end(), range) ==
                             condition.ranges.end())
        condition.ranges.push_back(range);
}

/// Adds the amounts whose size is from least, not negative, to most.
void AddSizes(AmountCondition& condition, std::int64_t least, std::int64_t most)
{
    Add(condition, least, most);
    Add(condition, most == Limits::max() ? Limits::min() : -most, -least);
}

void AddExactly(AmountCondition& condition, const Reading& reading)
{
    Add(condition, reading.amount, reading.amount);
    if (!reading.sign)
        Add(condition, -reading.amount, -reading.amount);
}

void AddAbove(AmountCondition& condition, const Reading& reading, bool included)
{
    if (!included && reading.amount == Limits::max()) {
        // Only the least number of 64 bits is larger.
        if (!reading.sign)
            Add(condition, Limits::min(), Limits::min());
        return;
    }
    const std::int64_t least = reading.amount + (included ? 0 : 1);
    if (reading.sign)
        Add(condition, least, Limits::max());
    else
        AddSizes(condition, least, Limits::max());
}

void AddBelow(AmountCondition& condition, const Reading& reading, bool included)
{
    const std::int64_t most = reading.amount - (included ? 0 : 1);
    if (reading.sign)
        Add(condition, Limits::min(), most);
    else
        Add(condition, -most, most);
}

void AddBetween(AmountCondition& condition, const Reading& one, const Reading& other)
{
    const auto [least, most] = std::minmax(one.amount, other.amount);
    if (one.sign || other.sign)
        Add(condition, least, most);
    else
        AddSizes(condition, least, most);
}

/// ">100", ">=100", "<20", "<=20".
void Compare(AmountCondition& condition, std::string_view word, char decimal)
{
    const bool above = word.front() == '>';
    const bool included = word.size() > 1 && word[1] == '=';
    const auto reading = Read(word.substr(included ? 2 : 1), decimal);
    if (!reading)
        return;
    condition.read = true;
    (above ? AddAbove : AddBelow)(condition, *reading, included);
}

/// "12..15", "12..", "..15".
void Between(AmountCondition& condition, std::string_view from, std::string_view to, char decimal)
{
    const auto first = Read(from, decimal);
    const auto last = Read(to, decimal);
    if ((!first && !from.empty()) || (!last && !to.empty()) || (!first && !last))
        return;
    condition.read = true;
    if (!last)
        AddAbove(condition, *first, true);
    else if (!first)
        AddBelow(condition, *last, true);
    else
        AddBetween(condition, *first, *last);
}

void Exactly(AmountCondition& condition, std::string_view word, char decimal)
{
    const auto reading = Read(word, decimal);
    if (!reading)
        return;
    condition.read = true;
    AddExactly(condition, *reading);
}

}  // namespace

AmountCondition AmountsOf(std::string_view word)
{
    AmountCondition condition;
    if (word.empty() || HasLetter(word))
        return condition;
    const std::size_t dots = word.find("..");
    // Of three points nobody knows which one belongs to the number.
    if (dots != std::string_view::npos && word.substr(dots + 2).starts_with('.'))
        return condition;
    for (const char decimal : {'.', ','}) {
        if (word.front() == '>' || word.front() == '<')
            Compare(condition, word, decimal);
        else if (dots != std::string_view::npos)
            Between(condition, word.substr(0, dots), word.substr(dots + 2), decimal);
        else
            Exactly(condition, word, decimal);
    }
    return condition;
}

}  // namespace clb
