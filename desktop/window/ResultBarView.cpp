#include "desktop/window/ResultBarView.h"

#include <sigc++/adaptors/track_obj.h>

#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "desktop/look/Announcement.h"
#include "desktop/look/CutLabel.h"
#include "desktop/look/GridColors.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

/// More actions than these have no button.
constexpr std::size_t kMostActions = 3;

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
    return caption == "Undo"   ? "undo"
           : caption == "Redo" ? "redo"
           : caption == "Show" ? "forward"
                               : "information";
}

}  // namespace

ResultBarView::ResultBarView(ResultBar& bar, const std::function<void(std::size_t button)>& press,
                             std::function<void()> close, QWidget* parent)
    : QFrame(parent),
      bar_(bar),
      text_(new CutLabel(this)),
      close_(MakeButton(this, "close", std::move(close)))
{
    for (std::size_t number = 0; number < kMostActions; ++number) {
        buttons_.push_back(MakeButton(this, "information", [press, number] { press(number); }));
        buttons_.back()->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    }
    setObjectName(ToQString(bar_.Name()));
    text_->setTextFormat(Qt::PlainText);
    text_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    close_->setToolTip(QStringLiteral("Close (Escape)"));
    close_->setAccessibleName(QStringLiteral("Close"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 1, 4, 0);
    row->setSpacing(10);
    row->addWidget(text_);
    for (QToolButton* const button : buttons_)
        row->addWidget(button);
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
    ShowButtons();
    Announce(*this, Words());
}

QString ResultBarView::Words() const
{
    QStringList captions;
    for (const QToolButton* button : buttons_)
        if (!button->isHidden())
            captions << button->text();
    if (text_->text().isEmpty() || captions.isEmpty())
        return text_->text();
    return text_->text() + QStringLiteral(" F6 goes to: ") + captions.join(QStringLiteral(", "));
}

void ResultBarView::ShowButtons()
{
    const std::vector<ResultBar::Action>& actions = bar_.Actions();
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        buttons_[i]->setVisible(i < actions.size());
        if (i >= actions.size())
            continue;
        buttons_[i]->setText(ToQString(actions[i].caption));
        buttons_[i]->setIcon(icons::Command(IconOf(actions[i].caption)));
    }
}

void ResultBarView::TakeFocus()
{
    QToolButton* const first = Button(0);
    (first ? first : close_)->setFocus(Qt::ShortcutFocusReason);
}

std::vector<QToolButton*> ResultBarView::Stops() const
{
    std::vector<QToolButton*> stops = buttons_;
    stops.push_back(close_);
    return stops;
}

QToolButton* ResultBarView::Button(std::size_t action) const
{
    return action < std::min(bar_.Actions().size(), buttons_.size()) ? buttons_[action] : nullptr;
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
