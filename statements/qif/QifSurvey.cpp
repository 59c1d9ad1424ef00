#include "statements/qif/QifSurvey.h"

#include "base/Text.h"

namespace clb {

std::string NamedByOpening(const QifRecord& record)
{
    const std::string_view category = record.category;
    if (!EqualsIgnoringCase(record.payee, "Opening Balance") || !category.starts_with('[') ||
        !category.ends_with(']'))
        return {};
    return std::string(category.substr(1, category.size() - 2));
}

void QifSurvey::BeginList(const QifList& list)
{
    accounts_.push_back(list.account);
}

void QifSurvey::Record(const QifRecord& record)
{
    if (record.ended)
        common_ &= record.letters;
    else if (record.last)
        last_ = record;
    if (!accounts_.empty() && accounts_.back().empty())
        accounts_.back() = NamedByOpening(record);
    if (!record.date.empty())
        dates_.Add(record.date);
    amounts_.Add(record.amount);
    amounts_.Add(record.otherAmount);
    for (const QifPiece& piece : record.pieces)
        amounts_.Add(piece.amount);
}

/// The format comes from America. Who writes decimal commas puts the day first.
DateText::Order QifSurvey::Preferred() const
{
    return amounts_.HasCommas() ? DateText::Order::DayMonthYear : DateText::Order::MonthDayYear;
}

bool QifSurvey::IsWhole(const QifRecord& record) const
{
    if (record.ended || !record.last)
        return true;
    const std::uint32_t common = common_ == UINT32_MAX ? 0 : common_;
    return record.lastLineIsWhole && !record.date.empty() && record.HasAmount() &&
           (record.letters & common) == common;
}

}  // namespace clb
