#include "statements/form/DateTexts.h"

#include <algorithm>
#include <array>

#include "statements/form/DateScanner.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

using DateText::Order;

constexpr std::array kOrders = {Order::DayMonthYear, Order::MonthDayYear, Order::YearMonthDay};
/// Days of the file that must differ before their direction settles an order.
constexpr std::size_t kSteps = 3;
/// A statement does not span that many days if another order puts them close together.
constexpr std::int32_t kLongSpan = 3 * 366;
constexpr std::int32_t kFarther = 20;

std::size_t IndexOf(Order order)
{
    return static_cast<std::size_t>(order);
}

}  // namespace

std::optional<Date> ReadDate(std::string_view text, Order order)
{
    const auto scanned = DateScanner(text).Scan();
    return scanned ? scanned->In(order) : std::nullopt;
}

void DateOrders::Tried::Add(Date date)
{
    if (readable == 0)
        first = latest = date.Days();
    ++readable;
    first = std::min(first, date.Days());
    latest = std::max(latest, date.Days());
    if (last && date.Days() != last->Days()) {
        ++steps;
        (date.Days() > last->Days() ? falls : rises) = false;
    }
    last = date;
}

void DateOrders::Add(std::string_view text)
{
    if (TrimSpaces(text).empty())
        return;
    const auto scanned = DateScanner(text).Scan();
    std::array<std::optional<Date>, 3> read;
    std::optional<Date> any;
    for (const Order order : kOrders) {
        const auto date = scanned ? scanned->In(order) : std::nullopt;
        read[IndexOf(order)] = date;
        differ_ = differ_ || (date && any && date->Days() != any->Days());
        any = date ? date : any;
    }
    if (!any) {
        ++unreadable_;
        return;
    }
    ++added_;
    points_ += scanned->HasPoints() ? 1U : 0U;
    shortYear_ = shortYear_ || scanned->HasShortYearFirst();
    for (const Order order : kOrders)
        if (read[IndexOf(order)])
            tried_[IndexOf(order)].Add(*read[IndexOf(order)]);
}

std::vector<Order> DateOrders::Fitting() const
{
    std::vector<Order> fitting;
    for (const Order order : kOrders)
        if (added_ > 0 && tried_[IndexOf(order)].readable == added_)
            fitting.push_back(order);
    std::stable_sort(fitting.begin(), fitting.end(), [this](Order one, Order other) {
        return tried_[IndexOf(one)].Span() < tried_[IndexOf(other)].Span();
    });
    return fitting;
}

std::vector<Order> DateOrders::Possible() const
{
    std::vector<Order> fitting = Fitting();
    if (fitting.size() > 1 && !differ_)
        fitting.resize(1);
    const auto has = [&fitting](Order order) {
        return std::find(fitting.begin(), fitting.end(), order) != fitting.end();
    };
    if (points_ == added_ && has(Order::DayMonthYear))
        std::erase(fitting, Order::MonthDayYear);
    if (fitting.size() < 2)
        return fitting;
    const auto span = [this](Order order) { return tried_[IndexOf(order)].Span(); };
    const std::int32_t closest = span(fitting.front());
    std::erase_if(fitting, [&](Order order) {
        return (span(order) > kLongSpan && span(order) / kFarther > closest) ||
               (order == Order::YearMonthDay && shortYear_ && span(order) >= closest &&
                fitting.front() != order);
    });
    const auto ordered = [this](Order order) {
        const Tried& tried = tried_[IndexOf(order)];
        return tried.steps >= kSteps && (tried.rises || tried.falls);
    };
    if (std::any_of(fitting.begin(), fitting.end(), ordered))
        std::erase_if(fitting, [&](Order order) {
            const Tried& tried = tried_[IndexOf(order)];
            return !tried.rises && !tried.falls;
        });
    return fitting;
}

}  // namespace clb
