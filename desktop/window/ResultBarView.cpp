#include "desktop/window/ResultBarView.h"

#include <sigc++/adaptors/track_obj.h>

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <utility>

#include "desktop/look/GridColors.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

/// A text that is cut if there is no room for it.
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

QToolButton* MakeButton(QWidget* parent, const char* icon, std::function<void()> action)
{
    auto* button = new QToolButton(parent);
    button->setAutoRaise(true);
    // A click leaves the focus where the user works.
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(icons::Command(icon));
    const int side = parent->fontMetrics().height();
    button->setIconSize(QSize(side, side));
    QObject::connect(button, &QToolButton::clicked, parent, std::move(action));
    return button;
}

const char* IconOf(const std::string& caption)
{
    return caption == "Undo" ? "undo" : caption == "Redo" ? "redo" : "information";
}

}  // namespace

ResultBarView::ResultBarView(ResultBar& bar, std::function<void()> press,
                             std::function<void()> close, QWidget* parent)
    : QFrame(parent),
      bar_(bar),
      text_(new CutLabel(this)),
      reverse_(MakeButton(this, "redo", std::move(press))),
      close_(MakeButton(this, "close", std::move(close)))
{
    setObjectName(ToQString(bar_.Name()));
    text_->setTextFormat(Qt::PlainText);
    text_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    reverse_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    close_->setToolTip(QStringLiteral("Close (Escape)"));
    close_->setAccessibleName(QStringLiteral("Close"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 1, 4, 0);
    row->setSpacing(10);
    row->addWidget(text_);
    row->addWidget(reverse_);
    row->addStretch(1);
    row->addWidget(close_);
    bar_.Changed().connect(sigc::track_obj([this] { Follow(); }, *this));
    hide();
}

void ResultBarView::Follow()
{
    const QString text = ToQString(bar_.Text());
    if (text == text_->text())
        return;
    text_->setText(text);
    text_->setToolTip(text);
    setAccessibleName(text);
    reverse_->setText(ToQString(bar_.ButtonCaption()));
    reverse_->setVisible(!bar_.ButtonCaption().empty());
    reverse_->setIcon(icons::Command(IconOf(bar_.ButtonCaption())));
    if (text.isEmpty())
        return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ResultBarView::paintEvent(QPaintEvent* /*event*/)
{
    const GridColors colors(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.group);
    painter.setPen(colors.frame);
    painter.drawLine(rect().topLeft(), rect().topRight());
}

}  // namespace clb
