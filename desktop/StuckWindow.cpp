#include "desktop/StuckWindow.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/frmController.h"
#include "desktop/PointerPort.h"
#include "desktop/TextConvert.h"
#include "desktop/UserEvents.h"

namespace clb {

namespace {

/// What the main window was about when it stopped, which its status text still tells.
QString WhatHappened(const std::string& status)
{
    const std::string importing = "Importing ";
    if (!status.starts_with(importing) || !status.ends_with("..."))
        return QStringLiteral("The last command stopped before its end.");
    const std::string file = status.substr(importing.size(), status.size() - importing.size() - 3);
    return QStringLiteral("The import of %1 stopped before its end.").arg(ToQString(file));
}

}  // namespace

StuckWindow::StuckWindow(frmController& controller, UserEvents& events, QWidget& above)
    : QDialog(&above), controller_(controller), events_(events), text_(new QLabel(this))
{
    setWindowTitle(ToQString(frmController::Title));
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* again =
        buttons->addButton(QStringLiteral("&Start again"), QDialogButtonBox::AcceptRole);
    QPushButton* quit = buttons->addButton(QStringLiteral("&Quit"), QDialogButtonBox::RejectRole);
    again->setObjectName(QStringLiteral("again"));
    quit->setObjectName(QStringLiteral("quit"));
    again->setDefault(true);
    connect(again, &QPushButton::clicked, this, [this] {
        startsAgain_ = true;
        Unload();
    });
    connect(quit, &QPushButton::clicked, this, &StuckWindow::reject);
    auto* all = new QVBoxLayout(this);
    all->setSpacing(14);
    all->addWidget(text_);
    all->addWidget(buttons);
}

StuckWindow::~StuckWindow() = default;

void StuckWindow::Follow()
{
    const bool stuck = controller_.Loaded() && !controller_.window.Enabled();
    if (stuck == isVisible())
        return;
    text_->setText(WhatHappened(controller_.StatusText()) +
                   QStringLiteral("\n\nThe main window takes no more input. What you saved is "
                                  "kept. \"Start again\" opens a new main window with your "
                                  "data."));
    setVisible(stuck);
}

void StuckWindow::reject()
{
    Unload();
}

void StuckWindow::Unload()
{
    // Not by closing: the grid could refuse to, and what it wants nobody could give it.
    events_.Run([this] { controller_.Unload(); });
}

bool StuckWindow::event(QEvent* event)
{
    if (event->type() == QEvent::Enter && !pointer_)
        pointer_ = std::make_unique<PlainPointer>();
    if (event->type() == QEvent::Leave || event->type() == QEvent::Hide)
        pointer_.reset();
    return QDialog::event(event);
}

}  // namespace clb
