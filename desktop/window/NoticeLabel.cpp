#include "desktop/window/NoticeLabel.h"

#include <sigc++/adaptors/track_obj.h>

#include <QPainter>

#include "app/Notices.h"
#include "controls/WorkProgress.h"
#include "desktop/look/Announcement.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"
#include "ports/IMessageBox.h"

namespace clb {

namespace {

constexpr int kGap = 5;
constexpr int kFewestCharacters = 12;

}  // namespace

NoticeLabel::NoticeLabel(Notices& notices, WorkProgress& progress, QWidget* parent)
    : QLabel(parent), notices_(notices), progress_(progress)
{
    setObjectName(QStringLiteral("notice"));
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    for (Event<void()> changed : {Event<void()>(notices_.Changed()), progress_.Changed()})
        changed.connect(sigc::track_obj([this] { Follow(); }, *this));
    Follow();
}

void NoticeLabel::Follow()
{
    const QString whole = ToQString(notices_.Text());
    const bool fresh = whole != text();
    if (fresh) {
        setText(whole);
        setToolTip(whole);
        setAccessibleName(whole);
        updateGeometry();
    }
    setHidden(whole.isEmpty() || progress_.Active());
    if (fresh)
        Announce(*this, whole);
}

QString NoticeLabel::Line() const
{
    return text().simplified();
}

int NoticeLabel::PictureWidth() const
{
    return notices_.Warns() ? fontMetrics().height() + kGap : kGap;
}

QSize NoticeLabel::sizeHint() const
{
    return {PictureWidth() + fontMetrics().horizontalAdvance(Line()) + 2 * kGap,
            fontMetrics().height()};
}

QSize NoticeLabel::minimumSizeHint() const
{
    return {PictureWidth() + fontMetrics().averageCharWidth() * kFewestCharacters,
            fontMetrics().height()};
}

void NoticeLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const int side = fontMetrics().height();
    if (notices_.Warns())
        icons::Message(box_style::Exclamation)
            .paint(&painter, QRect(0, (height() - side) / 2, side, side));
    const QRect room = rect().adjusted(PictureWidth(), 0, -kGap, 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(Line(), Qt::ElideRight, room.width()));
}

}  // namespace clb
