#include "desktop/grid/CellTip.h"

#include <QFontMetrics>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>
#include <algorithm>

#include "desktop/look/Colors.h"
#include "desktop/look/TextConvert.h"

namespace clb::cell_tip {

QString Prepare(const std::string& text, int mostLines)
{
    // The text is cut before it is laid out, because a tip may list a hundred thousand
    // transactions.
    std::size_t end = 0;
    int lines = 0;
    while (lines < mostLines && end != std::string::npos) {
        end = text.find('\n', end == 0 ? 0 : end + 1);
        ++lines;
    }
    QString shown = ToQString(std::string_view(text).substr(0, end)).remove(u'\r');
    if (end != std::string::npos)
        shown += QStringLiteral("\n...");
    if (Qt::mightBeRichText(shown))
        shown = QStringLiteral("<p style='white-space:pre'>%1</p>").arg(shown.toHtmlEscaped());
    return shown;
}

QColor Grey(const QPalette& tips)
{
    const QColor ground = tips.color(QPalette::ToolTipBase);
    return Readable(Mix(tips.color(QPalette::ToolTipText), ground, 0.65), ground);
}

void Show(QWidget& viewport, const QPoint& place, const QRect& cell, const std::string& text,
          const QColor& color)
{
    const int line = QFontMetrics(QToolTip::font()).lineSpacing();
    const int screen = viewport.screen()->availableGeometry().height();
    QString shown = Prepare(text, std::max(5, screen / line - 4));
    if (color.isValid()) {
        const QString rich = Qt::mightBeRichText(shown) ? shown : shown.toHtmlEscaped();
        shown = QStringLiteral("<span style='white-space:pre; color:%1'>%2</span>")
                    .arg(color.name(), rich);
    }
    QToolTip::showText(viewport.mapToGlobal(place), shown, &viewport, cell);
}

void Hide()
{
    QToolTip::hideText();
}

}  // namespace clb::cell_tip
