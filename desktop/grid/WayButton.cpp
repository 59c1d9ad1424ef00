#include "desktop/grid/WayButton.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "desktop/look/GridColors.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kGap = 8;
constexpr int kPadding = 14;
constexpr int kLinePadding = 6;
constexpr double kRadius = 6;

/// The height that a text needs if it is wrapped to this width.
int WrappedHeight(const QFont& font, const QString& text, int width)
{
    return QFontMetrics(font)
        .boundingRect(QRect(0, 0, std::max(1, width), QWIDGETSIZE_MAX), Qt::TextWordWrap, text)
        .height();
}

}  // namespace

WayButton::WayButton(QWidget* parent) : QPushButton(parent)
{
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
}

void WayButton::Take(const EmptyHint::Way& way)
{
    setText(ToQString(way.caption));
    picture_ = icons::Command(way.icon.c_str());
    explanation_ = ToQString(way.explanation);
    setAccessibleName(text());
    setAccessibleDescription(explanation_);
}

void WayButton::Draw(Look look, bool explains)
{
    if (look == look_ && explains == explains_)
        return;
    look_ = look;
    explains_ = explains && !explanation_.isEmpty();
    const bool card = look_ == Look::Card;
    QSizePolicy policy(look_ == Look::Link ? QSizePolicy::Minimum : QSizePolicy::Expanding,
                       card ? QSizePolicy::MinimumExpanding : QSizePolicy::Fixed);
    policy.setHeightForWidth(hasHeightForWidth());
    setSizePolicy(policy);
    updateGeometry();
    update();
}

QFont WayButton::CaptionFont() const
{
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    return bold;
}

/// The size of the drawing. A line without an explanation is as low as its caption allows.
int WayButton::Side() const
{
    const int line = fontMetrics().height();
    if (look_ == Look::Card)
        return explains_ ? line * 5 / 2 : line * 3 / 2;
    return explains_ ? line * 2 : line * 5 / 4;
}

/// The width that the words have in a button of this width.
int WayButton::TextWidth(int width) const
{
    return look_ == Look::Card ? width - 2 * kPadding : width - Side() - 3 * kPadding;
}

int WayButton::TextHeight(int width) const
{
    const int words = TextWidth(width);
    return WrappedHeight(CaptionFont(), text(), words) +
           (explains_ ? WrappedHeight(font(), explanation_, words) + kGap / 2 : 0);
}

QSize WayButton::minimumSizeHint() const
{
    if (look_ == Look::Link)
        return sizeHint();
    const int words = QFontMetrics(CaptionFont()).horizontalAdvance(text()) + 2;
    const int width = words + (TextWidth(0) < 0 ? -TextWidth(0) : 0);
    return {width, heightForWidth(width)};
}

QSize WayButton::sizeHint() const
{
    if (look_ != Look::Link)
        return minimumSizeHint();
    return {fontMetrics().horizontalAdvance(text()) + 2 * kGap, fontMetrics().height() + kGap};
}

int WayButton::heightForWidth(int width) const
{
    if (look_ == Look::Card)
        return Side() + TextHeight(width) + kGap + 2 * kPadding;
    return std::max(Side(), TextHeight(width)) + 2 * (explains_ ? kPadding - 4 : kLinePadding);
}

void WayButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (look_ == Look::Link)
        return DrawLink(painter);
    DrawGround(painter);
    const int side = Side();
    const QRect inner = rect().adjusted(kPadding, 0, -kPadding, 0);
    if (look_ == Look::Card) {
        picture_.paint(&painter, QRect((width() - side) / 2, kPadding, side, side));
        DrawWords(painter, inner.adjusted(0, kPadding + side + kGap, 0, 0), Qt::AlignHCenter);
        return;
    }
    picture_.paint(&painter, QRect(kPadding, (height() - side) / 2, side, side));
    QRect words = inner.adjusted(side + kPadding, 0, 0, 0);
    words.setTop((height() - TextHeight(width())) / 2);
    DrawWords(painter, words, Qt::AlignLeft);
}

void WayButton::DrawLink(QPainter& painter)
{
    const GridColors colors(palette());
    QFont underlined = font();
    underlined.setUnderline(true);
    painter.setFont(underlined);
    painter.setPen(colors.link);
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (!hasFocus())
        return;
    painter.setPen(QPen(colors.accent, 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
}

void WayButton::DrawGround(QPainter& painter)
{
    const GridColors colors(palette());
    const QColor ground = isDown()       ? colors.currentCell
                          : underMouse() ? colors.group
                                         : colors.alternate;
    const double pen = hasFocus() ? 2 : 1;
    painter.setPen(QPen(hasFocus() ? colors.accent : colors.frame, pen));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2), kRadius,
                            kRadius);
}

/// The caption, and below it the explanation, from the top of the room.
void WayButton::DrawWords(QPainter& painter, QRect room, Qt::Alignment side)
{
    const GridColors colors(palette());
    const int flags = int(side) | int(Qt::AlignTop) | int(Qt::TextWordWrap);
    painter.setFont(CaptionFont());
    painter.setPen(colors.text);
    painter.drawText(room, flags, text());
    if (!explains_)
        return;
    room.setTop(room.top() + WrappedHeight(CaptionFont(), text(), room.width()) + kGap / 2);
    painter.setFont(font());
    painter.setPen(colors.dimText);
    painter.drawText(room, flags, explanation_);
}

void WayButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

void WayButton::enterEvent(QEnterEvent* event)
{
    QPushButton::enterEvent(event);
    update();
}

void WayButton::leaveEvent(QEvent* event)
{
    QPushButton::leaveEvent(event);
    update();
}

}  // namespace clb
