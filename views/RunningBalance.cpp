#include "views/RunningBalance.h"

#include <algorithm>
#include <numeric>

#include "base/RuntimeError.h"
#include "controls/GridRows.h"
#include "data/ViewColumns.h"

namespace clb {
namespace {

/// The rows of a register, newest first. A row that was just added is the last of the source.
std::vector<std::size_t> NewestFirst(const GridRows& rows)
{
    std::vector<std::size_t> order(rows.Records());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto newer = [&rows](std::size_t one, std::size_t other) {
        const auto day = [&rows](std::size_t record) {
            const auto* date = std::get_if<Date>(&rows.OfSource(record, Register::PostDate));
            return date ? std::pair(date->Days(), date->Seconds()) : std::pair(INT32_MIN, 0);
        };
        const auto number = [&rows](std::size_t record, std::int32_t column) {
            return ToLong(rows.OfSource(record, column));
        };
        if (day(one) != day(other))
            return day(one) > day(other);
        const std::int32_t first = number(one, Register::Sequence);
        const std::int32_t second = number(other, Register::Sequence);
        return first != second
                   ? first > second
                   : number(one, Register::SubSequence) < number(other, Register::SubSequence);
    };
    if (!std::is_sorted(order.begin(), order.end(), newer))
        std::stable_sort(order.begin(), order.end(), newer);
    return order;
}

}  // namespace

void RunningBalance::EndsWith(Money balance)
{
    last_ = balance;
    known_ = false;
}

void RunningBalance::Compute(const GridRows& rows)
{
    known_ = true;
    generation_ = rows.Generation();
    after_.clear();
    try {
        std::vector<Money> after(rows.Records());
        Money balance = last_;
        for (const std::size_t record : NewestFirst(rows)) {
            after[record] = balance;
            balance = balance - ToMoney(rows.OfSource(record, Register::Amount));
        }
        after_ = std::move(after);
    } catch (const RuntimeError&) {
        after_.clear();  // a register with a figure that is too large shows no balances
    }
}

std::optional<Money> RunningBalance::After(const GridRows& rows, std::size_t row)
{
    if (row == 0 || row > rows.Count() || rows.Kind(row) != GridRowKind::Data)
        return std::nullopt;
    if (!known_ || generation_ != rows.Generation())
        Compute(rows);
    const std::size_t record = rows.Record(row);
    return record < after_.size() ? std::optional(after_[record]) : std::nullopt;
}

}  // namespace clb
