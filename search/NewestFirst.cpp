#include "search/NewestFirst.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "search/TransactionTexts.h"

namespace clb {

void NewestFirst::Make(const TransactionTexts& texts)
{
    if (rows_.size() == texts.Rows())
        return;
    rows_.resize(texts.Rows());
    SortByDay(texts);
    SortDays(texts);
}

/// Sorts by day only, the latest first, by counting.
void NewestFirst::SortByDay(const TransactionTexts& texts)
{
    constexpr std::int64_t kSpare = 1'000'000;  // days, in which books of any size may lie
    std::int64_t first = std::numeric_limits<std::int32_t>::max();
    std::int64_t last = TransactionTexts::kNoDay;
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (const std::int64_t day = texts.DayOf(row); day != TransactionTexts::kNoDay) {
            first = std::min(first, day);
            last = std::max(last, day);
        }
    if (first > last || last - first > kSpare) {
        std::iota(rows_.begin(), rows_.end(), 0U);
        std::sort(rows_.begin(), rows_.end(),
                  [&](std::uint32_t a, std::uint32_t b) { return texts.IsBefore(a, b); });
        return;
    }
    // Counts by the number of days before the last one; rows without a date come after all.
    const auto none = static_cast<std::size_t>(last - first) + 1;
    const auto placeOf = [&](std::size_t row) {
        const std::int32_t day = texts.DayOf(row);
        return day == TransactionTexts::kNoDay ? none : static_cast<std::size_t>(last - day);
    };
    std::vector<std::uint32_t> next(none + 2);
    for (std::size_t row = 0; row < rows_.size(); ++row)
        ++next[placeOf(row) + 1];
    std::partial_sum(next.begin(), next.end(), next.begin());
    for (std::size_t row = rows_.size(); row-- > 0;)
        rows_[next[placeOf(row)]++] = static_cast<std::uint32_t>(row);
}

/// Sorts the rows of each day. Most are in order, because later rows have larger numbers.
void NewestFirst::SortDays(const TransactionTexts& texts)
{
    const auto before = [&](std::uint32_t a, std::uint32_t b) { return texts.IsBeforeOfDay(a, b); };
    for (auto begin = rows_.begin(); begin != rows_.end();) {
        const std::int32_t day = texts.DayOf(*begin);
        auto end = begin + 1;
        bool inOrder = true;
        for (; end != rows_.end() && texts.DayOf(*end) == day; ++end)
            inOrder = inOrder && before(*(end - 1), *end);
        if (!inOrder)
            std::sort(begin, end, before);
        begin = end;
    }
}

void NewestFirst::Insert(const TransactionTexts& texts, std::size_t row)
{
    if (rows_.size() != row)
        return Forget();
    const auto place = std::upper_bound(
        rows_.begin(), rows_.end(), row,
        [&](std::size_t added, std::uint32_t other) { return texts.IsBefore(added, other); });
    rows_.insert(place, static_cast<std::uint32_t>(row));
}

std::vector<std::int64_t> NewestFirst::Of(const TransactionTexts& texts, const RowBits& rows,
                                          std::size_t most) const
{
    std::vector<std::int64_t> identities;
    const std::size_t count = std::min(rows.Count(), most);
    identities.reserve(count);
    for (auto row = rows_.begin(); identities.size() < count; ++row)
        if (rows.Has(*row))
            identities.push_back(texts.IdentityOf(*row));
    return identities;
}

}  // namespace clb
