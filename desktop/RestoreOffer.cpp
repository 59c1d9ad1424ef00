#include "desktop/RestoreOffer.h"

#include <QMessageBox>
#include <QPushButton>
#include <QStyle>

#include "base/Product.h"
#include "data/Trouble.h"
#include "desktop/DialogParent.h"
#include "desktop/Icons.h"
#include "desktop/MessageBoxPort.h"
#include "desktop/PointerPort.h"
#include "desktop/TextConvert.h"
#include "engine/EngineError.h"

namespace clb {

namespace {

void Say(const std::string& text, std::int32_t style)
{
    MessageBoxPort().Show(text, style, product::Title);
}

QPushButton* AddButton(QMessageBox& box, const char* name, const QString& caption,
                       QMessageBox::ButtonRole role)
{
    QPushButton* button = box.addButton(caption, role);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

}  // namespace

QString DamageText(const BackupFailure& failure)
{
    const QString reason = ToQString(failure.reason) + QStringLiteral("\n\n");
    if (failure.lastGood.empty())
        return reason + QStringLiteral("There is no good backup that could be restored.");
    return reason + QStringLiteral(
                        "The last good backup is of %1. What you entered after it is not "
                        "in it. When it is restored, the file that it replaces is kept "
                        "among the backups.")
                        .arg(ToQString(failure.Day()));
}

QString RestoreCaption(const BackupFailure& failure)
{
    return QStringLiteral("&Restore the backup of %1").arg(ToQString(failure.Day()));
}

std::unique_ptr<QMessageBox> BuildRestoreOffer(const BackupFailure& failure)
{
    auto box = std::make_unique<QMessageBox>(DialogParent());
    const int size = box->style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    box->setWindowTitle(ToQString(product::Title));
    box->setIconPixmap(
        icons::Message(box_style::Critical).pixmap(QSize(size, size), box->devicePixelRatioF()));
    box->setTextFormat(Qt::PlainText);
    box->setText(DamageText(failure));
    QPushButton* restore =
        AddButton(*box, "restore", RestoreCaption(failure), QMessageBox::AcceptRole);
    QPushButton* quit = AddButton(*box, "quit", QStringLiteral("&Quit"), QMessageBox::RejectRole);
    box->setDefaultButton(restore);
    box->setEscapeButton(quit);
    return box;
}

std::optional<std::string> OfferRestore(const Backups& backups, const EngineError& error)
{
    const FileTrouble trouble = error.Trouble();
    BackupFailure failure{true, "", error.what()};
    if (trouble == FileTrouble::Damaged || trouble == FileTrouble::Missing)
        failure.lastGood = backups.LastGood();
    if (failure.lastGood.empty())
        return std::nullopt;
    const PlainPointer pointer;
    const auto box = BuildRestoreOffer(failure);
    box->exec();
    const bool restores = box->clickedButton()->objectName() == QStringLiteral("restore");
    return restores ? failure.lastGood : std::string();
}

void RestoreBackup(Backups& backups, const std::string& name, const Date& now)
{
    try {
        const auto kept = backups.Restore(backups.PathOf(name), now);
        Say("The backup of " + BackupFailure{true, name, ""}.Day() + " was restored." +
                (kept ? " The file that it replaced is " + *kept + "." : ""),
            box_style::Information);
    } catch (const std::exception& error) {
        Say(TroubleText(error), box_style::Critical);
    }
}

}  // namespace clb
