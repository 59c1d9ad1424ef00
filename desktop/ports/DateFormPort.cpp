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

}  // namespace

DateFormPort::DateFormPort(const QLocale& locale)
    : locale_(locale), form_(locale.dateFormat(QLocale::ShortFormat))
{
    // With two digits, 1926 and 2026 would look the same.
    if (!form_.contains(QStringLiteral("yyyy")))
        form_.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
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
