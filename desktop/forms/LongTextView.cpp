#include "desktop/forms/LongTextView.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace clb {

namespace {

constexpr int kMargin = 6;

QString Printable(QStringView line)
{
    QString shown = line.toString();
    std::replace_if(
        shown.begin(), shown.end(), [](QChar character) { return character < u' '; }, u' ');
    return shown;
}

}  // namespace

LongTextView::LongTextView(QString text, QWidget* parent)
    : QAbstractScrollArea(parent), text_(std::move(text))
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setFocusPolicy(Qt::StrongFocus);
}

void LongTextView::Copy() const
{
    QGuiApplication::clipboard()->setText(text_.Text());
}

double LongTextView::CharacterWidth() const
{
    const QFontMetricsF metrics(font());
    const double narrow = metrics.horizontalAdvance(u'M');
    return std::max(1.0, text_.HasWideCharacters()
                             ? std::max(narrow, metrics.horizontalAdvance(QChar(0x4e00)))
                             : narrow);
}

void LongTextView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    text_.Wrap(static_cast<int>((viewport()->width() - 2 * kMargin) / CharacterWidth()));
    const int page =
        std::max(1, (viewport()->height() - 2 * kMargin) / fontMetrics().lineSpacing());
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setSingleStep(3);
    verticalScrollBar()->setRange(
        0, static_cast<int>(std::max<qsizetype>(0, text_.LineCount() - page)));
}

void LongTextView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    viewport()->update();
}

void LongTextView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        return Copy();
    switch (event->key()) {
        case Qt::Key_Home: return verticalScrollBar()->setValue(0);
        case Qt::Key_End: return verticalScrollBar()->setValue(verticalScrollBar()->maximum());
        default: QAbstractScrollArea::keyPressEvent(event);
    }
}

void LongTextView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    const int lineHeight = fontMetrics().lineSpacing();
    int baseline = kMargin + fontMetrics().ascent();
    for (qsizetype line = verticalScrollBar()->value();
         line < text_.LineCount() && baseline - lineHeight < viewport()->height(); ++line) {
        painter.drawText(kMargin, baseline, Printable(text_.Line(line)));
        baseline += lineHeight;
    }
}

}  // namespace clb
