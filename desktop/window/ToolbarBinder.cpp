#include "desktop/window/ToolbarBinder.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolBar>
#include <QToolButton>

#include "app/WindowCommands.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

ToolbarBinder::ToolbarBinder(Toolbar& toolbar, UserEvents& events, QWidget* parent)
    : QWidget(parent),
      toolbar_(toolbar),
      events_(events),
      bar_(new QToolBar(this)),
      row_(new QHBoxLayout(this))
{
    row_->setContentsMargins(4, 2, 6, 2);
    row_->addWidget(bar_, 1);
    for (const Toolbar::Button& button : toolbar_.Buttons())
        AddButton(button);
    toolbar_.Changed().connect(sigc::track_obj([this] { Sync(); }, *this));
}

void ToolbarBinder::AddButton(const Toolbar::Button& button)
{
    const WindowButton& command = *FindButton(button.key);
    if (command.separated)
        bar_->addSeparator();
    QAction* action = bar_->addAction(icons::Command(command.icon), ToQString(button.key));
    action->setObjectName(ToQString(button.key));
    action->setEnabled(button.enabled);
    const QKeySequence shortcut(QLatin1String(command.shortcut), QKeySequence::PortableText);
    action->setShortcut(shortcut);
    QString tip = ToQString(button.tip);
    if (!shortcut.isEmpty())
        tip += QStringLiteral(" (%1)").arg(shortcut.toString(QKeySequence::NativeText));
    action->setToolTip(tip);
    bar_->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    const std::string key = button.key;
    connect(action, &QAction::triggered, this, [this, key, onRow = command.onRow] {
        const auto work = [&] { toolbar_.Press(key); };
        onRow ? events_.RunOnRow(work) : events_.Run(work);
    });
    actions_[key] = action;
}

void ToolbarBinder::AddAtLeft(QToolButton* button)
{
    row_->insertWidget(0, button);
    button->setIconSize(bar_->iconSize());
}

void ToolbarBinder::AddAtRight(const QString& caption, QWidget* widget)
{
    auto* label = new QLabel(caption, this);
    label->setBuddy(widget);
    captions_.push_back(label);
    widget->setSizePolicy(QSizePolicy::Fixed, widget->sizePolicy().verticalPolicy());
    row_->addWidget(label);
    row_->addWidget(widget);
    Measure();
}

void ToolbarBinder::Measure()
{
    const int icon = fontMetrics().height() + 6;
    bar_->setIconSize(QSize(icon, icon));
    for (QLabel* caption : captions_)
        caption->setMaximumWidth(QWIDGETSIZE_MAX);
    const auto widthWith = [this](Qt::ToolButtonStyle style) {
        bar_->setToolButtonStyle(style);
        bar_->layout()->invalidate();
        bar_->updateGeometry();
        row_->invalidate();
        return row_->sizeHint().width();
    };
    bareWidth_ = widthWith(Qt::ToolButtonIconOnly);
    fullWidth_ = widthWith(Qt::ToolButtonTextBesideIcon);
    Fit();
}

void ToolbarBinder::Fit()
{
    bar_->setToolButtonStyle(width() < fullWidth_ ? Qt::ToolButtonIconOnly
                                                  : Qt::ToolButtonTextBesideIcon);
    // A hidden caption would no longer take its letter.
    for (QLabel* caption : captions_)
        caption->setMaximumWidth(width() < bareWidth_ ? 0 : QWIDGETSIZE_MAX);
}

void ToolbarBinder::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Fit();
}

void ToolbarBinder::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Measure();
}

QWidget* ToolbarBinder::ButtonOf(const std::string& key) const
{
    return bar_->widgetForAction(Action(key));
}

void ToolbarBinder::Sync()
{
    for (const Toolbar::Button& button : toolbar_.Buttons())
        actions_.at(button.key)->setEnabled(button.enabled);
}

}  // namespace clb
