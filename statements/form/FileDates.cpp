#include "statements/form/FileDates.h"

#include <algorithm>

#include "statements/form/TextScan.h"

namespace clb {

using DateText::Order;

std::string KeyOf(Order order)
{
    switch (order) {
        case Order::DayMonthYear: return "dmy";
        case Order::MonthDayYear: return "mdy";
        case Order::YearMonthDay: return "ymd";
    }
    return {};
}

void FileDates::Add(std::string_view text)
{
    orders_.Add(text);
    if (added_++ == 0)
        first_ = text;
}

std::string FileDates::Pattern() const
{
    std::string pattern;
    for (const char c : first_) {
        const char shown = IsDigit(static_cast<unsigned char>(c)) ? '9' : c;
        if (shown != ' ' && (pattern.empty() || shown != '9' || pattern.back() != '9'))
            pattern += shown;
    }
    return pattern;
}

/// The orders to choose from: one if the file settles it, none if it has no date. All if no order
/// fits every date.
std::vector<Order> FileDates::Options() const
{
    std::vector<Order> possible = orders_.Possible();
    if (possible.empty() && added_ > orders_.Unreadable())
        possible = {Order::DayMonthYear, Order::MonthDayYear, Order::YearMonthDay};
    return possible;
}

Order FileDates::Settled(std::optional<Order> answer, Order preferred) const
{
    if (answer)
        return *answer;
    const std::vector<Order> options = Options();
    if (options.empty() || std::find(options.begin(), options.end(), preferred) != options.end())
        return preferred;
    return options.front();
}

std::optional<OpenQuestion> FileDates::Open(std::optional<Order> answer, Order preferred) const
{
    const std::vector<Order> options = Options();
    if (answer || options.size() < 2)
        return std::nullopt;
    OpenQuestion question{StatementQuestion::DateOrder, {}, KeyOf(Settled({}, preferred)), {}};
    for (const Order order : options)
        question.options.push_back(KeyOf(order));
    question.why = orders_.Possible().empty()
                       ? "The dates of the file are in different orders."
                       : "All dates of the file, such as \"" + first_ +
                             "\", can be read in more than one order of day, month and year.";
    return question;
}

}  // namespace clb
