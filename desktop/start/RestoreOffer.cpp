#include "desktop/start/RestoreOffer.h"

#include <QMessageBox>
#include <QPushButton>
#include <QStyle>

#include "base/Product.h"
#include "data/ErrorText.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"
#include "desktop/look/TitleRoom.h"
#include "desktop/ports/DialogParent.h"
#include "desktop/ports/MessageBoxPort.h"
#include "desktop/ports/PointerPort.h"
#include "engine/rows/Connection.h"
#include "engine/rows/Recordset.h"
#include "engine/storage/EngineError.h"

namespace clb {

namespace {

void Say(const std::string& text, std::int32_t style)
{
    MessageBoxPort().Show(text, style, product::kTitle);
}

QPushButton* AddButton(QMessageBox& box, const char* name, const QString& caption,
                       QMessageBox::ButtonRole role)
{
    QPushButton* button = box.addButton(caption, role);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

/// Part of the names of copies that have been replaced.
constexpr const char* kBeforeRestore = "-before-restore";

/// Whether all accounts can be read; the window does not open otherwise. The restore itself reads
/// the whole copy.
bool HasAccounts(const std::string& copy)
{
    try {
        Connection book;
        book.Open("Data Source=" + copy);
        Recordset accounts = book.Execute("SELECT * FROM Account");
        for (; !accounts.AtEnd(); accounts.MoveNext())
            static_cast<void>(accounts.Get(0));
        return true;
    } catch (const EngineError&) {
        return false;
    }
}

}  // namespace

std::string BackupAgainst(const Backups& backups, const EngineError& error)
{
    const FileTrouble trouble = error.Trouble();
    if (trouble == FileTrouble::Damaged || trouble == FileTrouble::Missing)
        return backups.LastGood();
    if (error.Number() != engine_errors::TypeMismatch)
        return {};
    // The wrong cell may already be in the copy.
    const std::vector<std::string> names = backups.Names();
    for (auto name = names.rbegin(); name != names.rend(); ++name)
        if (name->find(kBeforeRestore) == std::string::npos && HasAccounts(backups.PathOf(*name)))
            return *name;
    return {};
}

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
    box->setWindowTitle(ToQString(product::kTitle));
    box->setIconPixmap(
        icons::Message(box_style::Critical).pixmap(QSize(size, size), box->devicePixelRatioF()));
    box->setTextFormat(Qt::PlainText);
    box->setText(DamageText(failure));
    QPushButton* restore =
        AddButton(*box, "restore", RestoreCaption(failure), QMessageBox::AcceptRole);
    QPushButton* quit = AddButton(*box, "quit", QStringLiteral("&Quit"), QMessageBox::RejectRole);
    box->setDefaultButton(restore);
    box->setEscapeButton(quit);
    MakeRoomForTitle(*box);
    return box;
}

std::optional<std::string> OfferRestore(const Backups& backups, const EngineError& error)
{
    const BackupFailure failure{true, BackupAgainst(backups, error), error.what()};
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
        Say(ErrorText(error), box_style::Critical);
    }
}

}  // namespace clb
