#include "desktop/help/FindBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <utility>

#include "desktop/look/Icons.h"

namespace clb {

namespace {

QToolButton* MakeButton(QWidget* bar, const char* icon, const QString& name, const QString& tip)
{
    auto* button = new QToolButton(bar);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(icons::Command(icon));
    button->setAccessibleName(name);
    button->setToolTip(tip);
    return button;
}

}  // namespace

FindBar::FindBar(Actions actions, QWidget* parent)
    : QWidget(parent),
      actions_(std::move(actions)),
      line_(new QLineEdit(this)),
      answer_(new QLabel(this))
{
    setObjectName(QStringLiteral("FindBar"));
    auto* caption = new QLabel(QStringLiteral("F&ind:"), this);
    caption->setBuddy(line_);
    line_->setClearButtonEnabled(true);
    line_->setMaximumWidth(fontMetrics().averageCharWidth() * 36);
    answer_->setObjectName(QStringLiteral("FindAnswer"));
    auto* before = MakeButton(this, "back", QStringLiteral("Previous place"),
                              QStringLiteral("Previous place (Shift+F3)"));
    auto* next = MakeButton(this, "forward", QStringLiteral("Next place"),
                            QStringLiteral("Next place (F3)"));
    auto* close =
        MakeButton(this, "close", QStringLiteral("Close"), QStringLiteral("Close (Escape)"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    for (QWidget* part : std::initializer_list<QWidget*>{caption, line_, before, next})
        row->addWidget(part);
    row->addWidget(answer_, 1);
    row->addWidget(close);
    connect(line_, &QLineEdit::textEdited, this,
            [this](const QString& text) { Say(text.isEmpty() || actions_.typed(text)); });
    connect(before, &QToolButton::clicked, this, [this] { Next(true); });
    connect(next, &QToolButton::clicked, this, [this] { Next(false); });
    connect(close, &QToolButton::clicked, this, [this] { Close(); });
    hide();
}

void FindBar::Open()
{
    show();
    line_->setFocus(Qt::ShortcutFocusReason);
    line_->selectAll();
}

void FindBar::Next(bool backward)
{
    if (line_->text().isEmpty())
        return Open();
    const bool found = actions_.next(line_->text(), backward);
    // The answer is beside the text.
    if (!found)
        show();
    Say(found);
}

void FindBar::Say(bool found)
{
    answer_->setText(found ? QString() : QStringLiteral("This page does not contain it."));
    if (found)
        return;
    QAccessibleEvent alert(answer_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void FindBar::Close()
{
    hide();
    actions_.closed();
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
        case Qt::Key_Escape: return Close();
        case Qt::Key_Return:
        case Qt::Key_Enter: return Next(event->modifiers().testFlag(Qt::ShiftModifier));
        default: QWidget::keyPressEvent(event);
    }
}

}  // namespace clb
