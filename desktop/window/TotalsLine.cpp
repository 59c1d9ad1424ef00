#include "desktop/window/TotalsLine.h"

#include <QLabel>
#include <QLineEdit>
#include <algorithm>

#include "desktop/input/UndoKeys.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kFrame = 12;  // pixels of a box's width that its frame and margins take

}  // namespace

void ApplyPlace(const Control& control, QWidget& widget)
{
    const Bounds& place = control.Place();
    widget.setVisible(place.width > 0 && place.height > 0);
    widget.setGeometry(place.left, place.top, place.width, place.height);
}

TotalsLine::TotalsLine(Label& label, TextBox& first, TextBox& second, QWidget* parent)
    : label_(new QLabel(parent)), first_(new QLineEdit(parent)), second_(new QLineEdit(parent))
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
    Follow(label);
    Follow(first, first_);
    Follow(second, second_);
}

void TotalsLine::Follow(Label& box)
{
    const auto sync = [this, &box] {
        label_->setText(ToQString(box.Caption()));
        ApplyPlace(box, *label_);
    };
    box.Changed().connect(sigc::track_obj(sync, *this));
    sync();
}

void TotalsLine::Follow(TextBox& box, QLineEdit* drawn)
{
    const auto sync = [&box, drawn] {
        ApplyPlace(box, *drawn);
        const QString amount = ToQString(box.Text());
        const int room = drawn->width() - kFrame;
        const QFontMetrics metrics = drawn->fontMetrics();
        const bool fits = metrics.horizontalAdvance(amount) <= room;
        // An amount without its first digits would be a wrong amount.
        drawn->setText(fits ? amount
                            : QString(std::max(1, room / metrics.horizontalAdvance(u'#')), u'#'));
        drawn->setToolTip(fits ? QString() : amount);
    };
    box.Changed().connect(sigc::track_obj(sync, *this));
    sync();
}

}  // namespace clb
