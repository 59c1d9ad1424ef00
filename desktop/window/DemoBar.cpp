#include "desktop/window/DemoBar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <utility>

#include "desktop/look/CutLabel.h"
#include "desktop/look/GridColors.h"

namespace clb {

DemoBar::DemoBar(std::function<void()> close, QWidget* parent) : QToolBar(parent)
{
    setObjectName(QStringLiteral("DemoBar"));
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    toggleViewAction()->setVisible(false);
    auto* line = new QWidget(this);
    text_ = new CutLabel(
        QStringLiteral("Demo: a made-up household. Nothing here touches your own book."), line);
    text_->setToolTip(text_->text());
    close_ = new QPushButton(QStringLiteral("Close the demo"), line);
    close_->setFocusPolicy(Qt::TabFocus);
    connect(close_, &QPushButton::clicked, this, std::move(close));
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(8, 2, 4, 3);
    row->setSpacing(10);
    row->addWidget(text_, 1);
    row->addWidget(close_);
    addWidget(line);
    setAccessibleName(text_->text());
}

void DemoBar::paintEvent(QPaintEvent* /*event*/)
{
    const GridColors colors(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.group);
    painter.setPen(colors.frame);
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

}  // namespace clb
