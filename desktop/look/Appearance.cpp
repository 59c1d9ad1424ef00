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
    QPalette shown = now;
    shown.setColor(QPalette::Link,
                   Readable(now.color(QPalette::Link), now.color(QPalette::Window)));
    // Not every desktop's selection is dark enough for its text.
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        shown.setColor(group, QPalette::Highlight,
                       Readable(now.color(group, QPalette::Highlight),
                                now.color(group, QPalette::HighlightedText)));
    // A desktop may name dark colours and leave out that of every other row.
    if (Contrast(text, now.color(QPalette::AlternateBase)) < 4.5)
        shown.setColor(QPalette::AlternateBase, Mix(text, base, 0.035));
    if (shown != now)
        QApplication::setPalette(shown);
    QPalette tips = QToolTip::palette();
    tips.setColor(QPalette::ToolTipBase, Mix(text, base, 0.08));
    tips.setColor(QPalette::ToolTipText, text);
    QToolTip::setPalette(tips);
}

}  // namespace clb
