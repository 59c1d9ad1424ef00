#include "controls/GridSort.h"

#include <algorithm>
#include <string>

#include "base/Text.h"

namespace clb {
namespace {

bool Before(const Value& one, const Value& other)
{
    if (IsNull(one) || IsNull(other))
        return IsNull(one) && !IsNull(other);
    const auto* text = std::get_if<std::string>(&one);
    const auto* otherText = std::get_if<std::string>(&other);
    if (text && otherText)
        return CompareAlphabetical(*text, *otherText) < 0;
    if (one.index() != other.index())
        return one.index() < other.index();
    return std::visit(
        [&other](const auto& value) {
            using Type = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Type, Null>)
                return false;
            else if constexpr (std::is_same_v<Type, Date>)
                return value.Days() < std::get<Type>(other).Days();
            else
                return value < std::get<Type>(other);
        },
        one);
}

}  // namespace

void SortRecords(std::vector<std::size_t>& records, const std::vector<Value>& keys, bool descending)
{
    std::stable_sort(records.begin(), records.end(), [&](std::size_t one, std::size_t other) {
        return descending ? Before(keys[other], keys[one]) : Before(keys[one], keys[other]);
    });
}

}  // namespace clb
