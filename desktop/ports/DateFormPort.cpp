#include "desktop/ports/DateFormPort.h"

#include <QDate>
#include <QTime>

#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

QDate ToQDate(const Date& date)
{
    return QDate(date.Year(), date.Month(), date.Day());
}

DateText::Order OrderOf(const QString& form)
{
    const qsizetype year = form.indexOf(QLatin1Char('y'));
    const qsizetype month = form.indexOf(QLatin1Char('M'));
    const qsizetype day = form.indexOf(QLatin1Char('d'));
    if (year < month && year < day)
        return DateText::Order::YearMonthDay;
    return day < month ? DateText::Order::DayMonthYear : DateText::Order::MonthDayYear;
}

DateHabits DatesOf(const QLocale& locale, const QString& form)
{
    DateHabits habits{OrderOf(form), {}};
    for (int month = 1; month <= 12; ++month)
        for (const auto length : {QLocale::LongFormat, QLocale::ShortFormat})
            for (const QString& name :
                 {locale.monthName(month, length), locale.standaloneMonthName(month, length)})
                habits.months.push_back({ToUtf8(name), month});
    return habits;
}

AmountHabits AmountsOf(const QLocale& locale)
{
    AmountHabits habits;
    if (locale.decimalPoint() == QLatin1String(","))
        habits.decimal = ',';
    habits.group = ToUtf8(locale.groupSeparator());
    if (habits.group.empty() || habits.group == std::string(1, habits.decimal))
        habits.group = habits.decimal == ',' ? "." : ",";
    return habits;
}

}  // namespace

DateFormPort::DateFormPort(const QLocale& locale)
    : locale_(locale), form_(locale.dateFormat(QLocale::ShortFormat))
{
    // With two digits, 1926 and 2026 would look the same.
    if (!form_.contains(QStringLiteral("yyyy")))
        form_.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    dates_ = DatesOf(locale, form_);
    amounts_ = AmountsOf(locale);
}

std::string DateFormPort::Format(const Date& date) const
{
    QString text = locale_.toString(ToQDate(date), form_);
    if (date.Seconds() != 0)
        text +=
            QTime(date.Hour(), date.Minute(), date.Second()).toString(QStringLiteral(" hh:mm:ss"));
    return ToUtf8(text);
}

std::optional<Date> DateFormPort::Read(std::string_view text) const
{
    if (const auto iso = Date::FromIso(text))
        return iso;
    const QString typed = ToQString(text).trimmed();
    const QDate day = locale_.toDate(typed, form_);
    if (day.isValid())
        return Date::Of(day.year(), day.month(), day.day());
    const QDateTime moment = locale_.toDateTime(typed, form_ + QStringLiteral(" hh:mm:ss"));
    if (!moment.isValid())
        return std::nullopt;
    return Date::Of(moment.date().year(), moment.date().month(), moment.date().day(),
                    moment.time().hour(), moment.time().minute(), moment.time().second());
}

}  // namespace clb
