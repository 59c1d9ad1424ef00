#include "desktop/window/YearBox.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QStyleOptionSpinBox>
#include <algorithm>
#include <optional>

#include "base/Text.h"
#include "desktop/input/UndoKeys.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"
#include "typed/TypedDate.h"

namespace clb {

namespace {

constexpr const char* kValueProperty = "value";

bool IsFourDigits(const QString& text)
{
    return text.size() == 4 && std::all_of(text.begin(), text.end(), [](QChar digit) {
               return digit >= u'0' && digit <= u'9';
           });
}

/// Two digits are a year near this one, as in a date that is typed.
std::string WholeYear(const std::string& text)
{
    const std::optional<int> year = YearOfTwoDigits(Trim(text));
    return year ? std::to_string(*year) : text;
}

}  // namespace

YearBox::YearBox(TextBox& year, Spinner& spinner, UserEvents& events, QWidget* parent)
    : QAbstractSpinBox(parent), year_(year), spinner_(spinner), events_(events)
{
    setAlignment(Qt::AlignRight);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
        if (IsFourDigits(text) && Edited())
            HandOn();
    });
    new UndoKeys(*this, *lineEdit(), [this] { return Edited(); });
    year_.Changed().connect(sigc::track_obj([this] { Sync(); }, *this));
    Sync();
}

QSize YearBox::sizeHint() const
{
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QSize inner(fontMetrics().horizontalAdvance(QStringLiteral("00000 ")),
                      lineEdit()->sizeHint().height());
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, inner, this);
}

void YearBox::Sync()
{
    const QString text = ToQString(year_.Text());
    if (lineEdit()->text() != text)
        lineEdit()->setText(text);
    bool number = false;
    const int year = text.toInt(&number);
    if (!number || property(kValueProperty) == year)
        return;
    // Screen readers take a spin box's number from its property.
    setProperty(kValueProperty, year);
    QAccessibleValueChangeEvent value(this, year);
    QAccessible::updateAccessibility(&value);
}

bool YearBox::Edited() const
{
    return ToUtf8(lineEdit()->text()) != year_.Text();
}

/// Ends the edit of the text.
void YearBox::HandOn()
{
    const std::string text = WholeYear(ToUtf8(lineEdit()->text()));
    const std::string shown = year_.Text();
    // A text that is no year has been reported; the box must not keep it above another year's
    // figures.
    if (Trim(text).empty())
        Sync();
    else if (text != shown && !events_.Run([&] { year_.Text(text); }))
        events_.Run([&] { year_.Text(shown); });
    // The line forgets what was typed, and Ctrl+Z is the window's command again.
    const int cursor = lineEdit()->cursorPosition();
    lineEdit()->setText(lineEdit()->text());
    lineEdit()->setCursorPosition(cursor);
}

void YearBox::stepBy(int steps)
{
    HandOn();
    events_.Run([&] { spinner_.Step(steps > 0 ? 1 : -1); });
}

void YearBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        HandOn();
        lineEdit()->selectAll();
        return;
    }
    if (event->key() == Qt::Key_Escape && ToUtf8(lineEdit()->text()) != year_.Text()) {
        Sync();
        lineEdit()->selectAll();
        return;
    }
    QAbstractSpinBox::keyPressEvent(event);
}

void YearBox::focusOutEvent(QFocusEvent* event)
{
    QAbstractSpinBox::focusOutEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        HandOn();
}

}  // namespace clb
