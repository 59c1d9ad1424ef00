#include "desktop/grid/CellPopup.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/GridColors.h"
#include "desktop/look/Icons.h"

namespace clb {

namespace {

/// Gives the calendar the program's own arrows, and weekends that are legible in light and dark.
void Dress(QCalendarWidget& calendar)
{
    const GridColors colors(calendar.palette());
    QTextCharFormat weekend;
    weekend.setForeground(colors.negative);
    calendar.setWeekdayTextFormat(Qt::Saturday, weekend);
    calendar.setWeekdayTextFormat(Qt::Sunday, weekend);
    const auto arrow = [&calendar](const char* button, const char* name) {
        auto* drawn = calendar.findChild<QToolButton*>(QLatin1String(button));
        if (!drawn)
            return;
        // The arrows are on the highlighted bar.
        const QSize size(calendar.fontMetrics().height(), calendar.fontMetrics().height());
        drawn->setIconSize(size);
        drawn->setIcon(QIcon(
            icons::Command(name).pixmap(size, calendar.devicePixelRatioF(), QIcon::Selected)));
    };
    arrow("qt_calendar_prevmonth", "back");
    arrow("qt_calendar_nextmonth", "forward");
}

}  // namespace

CellPopup::CellPopup(QWidget* parent) : QFrame(parent, Qt::Popup)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);
    auto* inside = new QVBoxLayout(this);
    inside->setContentsMargins(0, 0, 0, 0);
}

CellPopup* CellPopup::List(QWidget* parent, const QStringList& texts, const QString& current,
                           int rows, std::function<void(const QString&)> pick)
{
    auto* popup = new CellPopup(parent);
    auto* list = popup->list_ = new QListWidget(popup);
    list->setFrameShape(QFrame::NoFrame);
    list->setUniformItemSizes(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const QString& text : texts) {
        auto* item = new QListWidgetItem(text, list);
        item->setSizeHint(QSize(list->fontMetrics().horizontalAdvance(text) + 8,
                                list->fontMetrics().height() + 4));
    }
    list->setCurrentRow(std::max(0, static_cast<int>(texts.indexOf(current))));
    list->installEventFilter(popup);
    popup->layout()->addWidget(list);
    popup->setFocusProxy(list);
    popup->FitRows(rows);
    popup->layout()->setSizeConstraint(QLayout::SetFixedSize);
    const auto take = [popup, pick = std::move(pick)](QListWidgetItem* item) {
        pick(item->text());
        popup->close();
    };
    connect(list, &QListWidget::itemClicked, popup, take);
    // Enter on a marked line.
    connect(list, &QListWidget::itemActivated, popup, [popup, take](QListWidgetItem* item) {
        if (popup->isVisible())
            take(item);
    });
    return popup;
}

void CellPopup::paintEvent(QPaintEvent* /*event*/)
{
    // Not every style draws a frame that is seen in dark colours.
    const GridColors colors(palette());
    QPainter painter(this);
    painter.fillRect(rect(), Mix(colors.text, colors.base, 0.4));
}

void CellPopup::FitRows(int rows)
{
    const int line = std::max(list_->sizeHintForRow(0), fontMetrics().height() + 4);
    const int shown = std::clamp(list_->count(), 1, std::max(rows, 1));
    list_->setFixedHeight(line * shown);
    const bool scrolls = list_->count() > shown;
    contentWidth_ = list_->sizeHintForColumn(0) + 12 +
                    (scrolls ? list_->verticalScrollBar()->sizeHint().width() : 0);
}

CellPopup* CellPopup::Calendar(QWidget* parent, const QDate& day,
                               std::function<void(const QDate&)> pick)
{
    auto* popup = new CellPopup(parent);
    auto* calendar = popup->calendar_ = new QCalendarWidget(popup);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setSelectedDate(day);
    Dress(*calendar);
    popup->layout()->addWidget(calendar);
    popup->setFocusProxy(calendar);
    const auto take = [popup, pick = std::move(pick)](const QDate& chosen) {
        if (!popup->isVisible())
            return;
        pick(chosen);
        popup->close();
    };
    connect(calendar, &QCalendarWidget::clicked, popup, take);
    connect(calendar, &QCalendarWidget::activated, popup, take);
    return popup;
}

void CellPopup::ShowAt(const QRect& cell, int least)
{
    if (list_)
        list_->setFixedWidth(std::max({cell.width() - 2 * frameWidth(), least, contentWidth_}));
    adjustSize();
    const QRect room = parentWidget()->screen()->availableGeometry();
    QPoint place = cell.bottomLeft() + QPoint(0, 1);
    if (place.y() + height() > room.bottom())
        place.setY(cell.top() - height());
    place.setX(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - width())));
    move(place);
    show();
    focusProxy()->setFocus(Qt::PopupFocusReason);
}

bool CellPopup::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == list_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool again = key->key() == Qt::Key_F4 ||
                           (key->key() == Qt::Key_Up && key->modifiers() == Qt::AltModifier);
        if (again || key->key() == Qt::Key_Escape) {
            close();
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace clb
