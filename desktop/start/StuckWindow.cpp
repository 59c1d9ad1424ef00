#include "desktop/start/StuckWindow.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/frmController.h"
#include "base/Product.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"
#include "desktop/look/TitleRoom.h"
#include "desktop/ports/PointerPort.h"
#include "desktop/start/RestoreOffer.h"

namespace clb {

namespace {

/// What the main window was doing when it stopped. Its status text still shows it.
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
    : QDialog(&above),
      controller_(controller),
      events_(events),
      text_(new QLabel(this)),
      buttons_(new QDialogButtonBox(this))
{
    setWindowTitle(ToQString(product::kTitle));
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    again_ = AddButton("again", QStringLiteral("&Start again"), QDialogButtonBox::AcceptRole);
    restore_ = AddButton("restore", QString(), QDialogButtonBox::AcceptRole);
    goOn_ = AddButton("goOn", QStringLiteral("&Go on with the damaged file"),
                      QDialogButtonBox::DestructiveRole);
    quit_ = AddButton("quit", QStringLiteral("&Quit"), QDialogButtonBox::RejectRole);
    auto* all = new QVBoxLayout(this);
    all->setSpacing(14);
    all->addWidget(text_);
    all->addWidget(buttons_);
    MakeRoomForTitle(*this);
    connect(buttons_, &QDialogButtonBox::clicked, this,
            [this](QAbstractButton* button) { Pressed(button); });
}

StuckWindow::~StuckWindow() = default;

QPushButton* StuckWindow::AddButton(const char* name, const QString& caption, int role)
{
    QPushButton* button =
        buttons_->addButton(caption, static_cast<QDialogButtonBox::ButtonRole>(role));
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

void StuckWindow::Pressed(const QAbstractButton* button)
{
    if (button == goOn_)
        return GoOn();
    startsAgain_ = button == again_ || button == restore_;
    if (button == restore_)
        restores_ = damage_->lastGood;
    Unload();
}

void StuckWindow::GoOn()
{
    damage_.reset();
    wentOn_ = true;
    events_.Run([this] { controller_.window.Enabled(true); });
}

void StuckWindow::Damaged(const BackupFailure& failure)
{
    if (wentOn_)
        return;
    damage_ = failure;
    // The running command ends first. It may have a dialog open.
    events_.Run([] {});
}

void StuckWindow::Follow()
{
    const bool damaged = damage_.has_value() && controller_.Loaded();
    if (damaged)
        controller_.window.Enabled(false);
    const bool stuck = controller_.Loaded() && !controller_.window.Enabled();
    if (stuck == isVisible() && damaged == tellsDamage_)
        return;
    tellsDamage_ = damaged;
    damaged ? TellDamaged() : TellStuck();
    setVisible(stuck);
}

void StuckWindow::TellStuck()
{
    text_->setText(WhatHappened(controller_.statusBar.Panel(1)) +
                   QStringLiteral("\n\nThe main window takes no more input. What you saved is "
                                  "kept. \"Start again\" opens a new main window with your "
                                  "data."));
    restore_->hide();
    goOn_->hide();
    again_->show();
    again_->setDefault(true);
}

void StuckWindow::TellDamaged()
{
    const bool restores = !damage_->lastGood.empty();
    text_->setText(DamageText(*damage_) +
                   QStringLiteral("\n\nGoing on with the damaged file may lose more of it. It is "
                                  "good for looking something up, and for exporting it."));
    restore_->setText(RestoreCaption(*damage_));
    again_->hide();
    restore_->setVisible(restores);
    goOn_->show();
    (restores ? restore_ : quit_)->setDefault(true);
}

void StuckWindow::reject()
{
    Unload();
}

void StuckWindow::Unload()
{
    // Closing is not possible: the grid could refuse, and the user could not correct the row.
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
