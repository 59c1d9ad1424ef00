// A line of text that gives way.
#pragma once
#include <QLabel>
#include <QPainter>

namespace clb {

/// A text in one line, which is cut if there is no room for it.
class CutLabel : public QLabel {
public:
    using QLabel::QLabel;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, fontMetrics().height()}; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft,
                         fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    }
};

}  // namespace clb
