#include "desktop/window/TotalsLine.h"

#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <climits>

#include "desktop/input/UndoKeys.h"
#include "desktop/look/Announcement.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kFrame = 12;  // pixels of a box's width that its frame and margins take
constexpr int kGap = 4;     // pixels between the boxes

}  // namespace

void ApplyPlace(const Control& control, QWidget& widget)
{
    const Bounds& place = control.Place();
    widget.setVisible(place.width > 0 && place.height > 0);
    widget.setGeometry(place.left, place.top, place.width, place.height);
}

TotalsLine::TotalsLine(Label& label, TextBox& first, TextBox& second, QWidget* parent)
    : labelModel_(label),
      firstModel_(first),
      secondModel_(second),
      label_(new QLabel(parent)),
      first_(new QLineEdit(parent)),
      second_(new QLineEdit(parent))
{
    label_->setObjectName(ToQString(label.Name()));
    first_->setObjectName(ToQString(first.Name()));
    second_->setObjectName(ToQString(second.Name()));
    label_->setTextFormat(Qt::PlainText);
    label_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont bold = label_->font();
    bold.setWeight(QFont::DemiBold);
    for (QLineEdit* box : {first_, second_}) {
        box->setReadOnly(true);
        new UndoKeys(*box, *box, [] { return false; });
        box->setAlignment(Qt::AlignRight);
        box->setFont(bold);
    }
    for (Control* control : {static_cast<Control*>(&label), static_cast<Control*>(&first),
                             static_cast<Control*>(&second)})
        Follow(*control);
    Arrange();
}

void TotalsLine::Follow(Control& control)
{
    control.Changed().connect(sigc::track_obj([this] { Arrange(); }, *this));
}

void TotalsLine::Arrange()
{
    const int second = Show(secondModel_, *second_, INT_MAX);
    const int first = Show(firstModel_, *first_, second - kGap);
    ApplyPlace(labelModel_, *label_);
    const QString caption = ToQString(labelModel_.Caption());
    const Bounds& place = labelModel_.Place();
    const int right = std::min(place.left + place.width, first - kGap);
    const int width = std::min(right, label_->fontMetrics().horizontalAdvance(caption));
    const int left = std::min(place.left, right - width);
    label_->setGeometry(std::max(0, left), place.top, right - std::max(0, left), place.height);
    const QString shown =
        label_->fontMetrics().elidedText(caption, Qt::ElideRight, label_->width());
    label_->setText(shown);
    label_->setToolTip(shown == caption ? QString() : caption);
}

void TotalsLine::Describe(const QString& subject, const QString& first, const QString& second)
{
    NamePart(*first_, first);
    NamePart(*second_, second);
    const QString amounts = Amounts();
    const bool same = subject == subject_ && amounts != read_;
    subject_ = subject;
    read_ = amounts;
    if (same)
        Announce(*first_, amounts);
}

/// The amounts that are shown, each with its name.
QString TotalsLine::Amounts() const
{
    QStringList amounts;
    for (const QLineEdit* box : {first_, second_})
        if (!box->isHidden() && !box->text().isEmpty())
            amounts << box->accessibleName() + u' ' + box->text();
    return amounts.join(QStringLiteral(", "));
}

int TotalsLine::Show(const TextBox& box, QLineEdit& drawn, int limit)
{
    ApplyPlace(box, drawn);
    const Bounds& place = box.Place();
    if (place.width <= 0)
        return limit;
    const QString amount = ToQString(box.Text());
    const int right = std::min(place.left + place.width, limit);
    const int needed = drawn.fontMetrics().horizontalAdvance(amount) + kFrame;
    const int left = std::max(0, std::min(place.left, right - needed));
    drawn.setGeometry(left, place.top, right - left, place.height);
    drawn.setText(amount);
    return left;
}

}  // namespace clb
