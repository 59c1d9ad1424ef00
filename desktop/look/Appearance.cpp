#include "desktop/look/Appearance.h"

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QToolTip>

#include "desktop/look/Colors.h"

namespace clb {

Appearance::Appearance()
{
    qApp->installEventFilter(this);
    Follow();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange && !following_)
        Follow();
    return false;
}

void Appearance::Follow()
{
    const QScopedValueRollback guard(following_, true);
    const QPalette now = QApplication::palette();
    const QColor base = now.color(QPalette::Base);
    const QColor text = now.color(QPalette::Text);
    const QColor link = Readable(now.color(QPalette::Link), now.color(QPalette::Window));
    if (link != now.color(QPalette::Link)) {
        QPalette shown = now;
        shown.setColor(QPalette::Link, link);
        QApplication::setPalette(shown);
    }
    QPalette tips = QToolTip::palette();
    tips.setColor(QPalette::ToolTipBase, Mix(text, base, 0.08));
    tips.setColor(QPalette::ToolTipText, text);
    QToolTip::setPalette(tips);
}

}  // namespace clb
