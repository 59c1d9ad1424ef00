#include "desktop/grid/CellTip.h"

#include <QFontMetrics>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>
#include <algorithm>

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

void Show(QWidget& viewport, const QPoint& place, const QRect& cell, const std::string& text)
{
    const int line = QFontMetrics(QToolTip::font()).lineSpacing();
    const int screen = viewport.screen()->availableGeometry().height();
    const QString shown = Prepare(text, std::max(5, screen / line - 4));
    QToolTip::showText(viewport.mapToGlobal(place), shown, &viewport, cell);
}

void Hide()
{
    QToolTip::hideText();
}

}  // namespace clb::cell_tip
