#include "statements/csv/RowDates.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace clb {
namespace {

using DateText::Order;

constexpr std::array kOrders = {Order::DayMonthYear, Order::MonthDayYear, Order::YearMonthDay};
/// Days between the dates of one row; more than the latter says that their order is wrong.
constexpr std::int32_t kNear = 15;
constexpr std::int32_t kFar = 25;

}  // namespace

void RowDates::Add(std::string_view date, std::string_view other)
{
    if (started_ && date == date_ && other == other_)
        return;
    started_ = true;
    if (date != date_)
        orders_.Add(date);
    date_ = date;
    other_ = other;
    for (const Order order : kOrders)
        Count(counts_[static_cast<std::size_t>(order)], ReadDate(date, order),
              other.empty() ? std::nullopt : ReadDate(other, order), !other.empty());
}

void RowDates::Count(Counts& counts, std::optional<Date> day, std::optional<Date> second,
                     bool hasSecond)
{
    if (!day)
        return;
    if (counts.last && day->Days() != counts.last->Days())
        (day->Days() > counts.last->Days() ? counts.rises : counts.falls) += 1;
    counts.last = day;
    ++counts.readable;
    if (!hasSecond)
        return;
    const std::int32_t apart = second ? std::abs(second->Days() - day->Days()) : kFar + 1;
    counts.farthest = std::max(counts.farthest, apart);
}

/// Keeps the orders that are wanted, or all if none is.
void RowDates::Keep(std::vector<Order>& orders,
                    const std::function<bool(const Counts&)>& wanted) const
{
    std::vector<Order> kept;
    std::copy_if(orders.begin(), orders.end(), std::back_inserter(kept),
                 [&](Order order) { return wanted(Of(order)); });
    if (!kept.empty())
        orders = kept;
}

std::vector<Order> RowDates::Possible(const std::vector<BalanceStep>& steps) const
{
    std::vector<Order> possible = orders_.Possible();
    if (std::any_of(possible.begin(), possible.end(),
                    [this](Order order) { return Of(order).farthest <= kNear; }))
        Keep(possible, [](const Counts& counts) { return counts.farthest <= kFar; });
    if (steps.size() == 1 && steps.front() == BalanceStep::PlusOwn)
        Keep(possible, [](const Counts& counts) { return counts.falls == 0; });
    if (steps.size() == 1 && steps.front() == BalanceStep::MinusEarlier)
        Keep(possible, [](const Counts& counts) { return counts.rises == 0; });
    return possible;
}

std::vector<Order> RowDates::Readable() const
{
    std::vector<Order> readable;
    for (const Order order : kOrders)
        if (Of(order).readable > 0)
            readable.push_back(order);
    std::stable_sort(readable.begin(), readable.end(), [this](Order one, Order other) {
        return Of(one).readable > Of(other).readable;
    });
    return readable;
}

RowDates::Direction RowDates::DirectionIn(Order order) const
{
    const Counts& counts = Of(order);
    if (counts.rises > 4 * counts.falls)
        return Direction::Rising;
    return counts.falls > 4 * counts.rises ? Direction::Falling : Direction::None;
}

}  // namespace clb
