// Offers to restore a backup.
#pragma once
#include <QString>
#include <memory>
#include <optional>
#include <string>

#include "data/Backups.h"

class QMessageBox;

namespace clb {

class EngineError;

/// What is wrong with the data file, and which backup can be restored.
QString DamageText(const BackupFailure& failure);
/// "&Restore the backup of 2026-11-20".
QString RestoreCaption(const BackupFailure& failure);

/// The box that says that the data cannot be opened and offers to restore the last good backup
/// (button "restore") or to quit (button "quit", also by closing it).
std::unique_ptr<QMessageBox> BuildRestoreOffer(const BackupFailure& failure);
/// Name of the backup that helps when the data cannot be opened because of this error. For a
/// damaged or missing file it is the last good backup. For a cell with a value that its column does
/// not allow, it is the newest backup in which all accounts can be read. Empty if there is none,
/// and for other errors.
std::string BackupAgainst(const Backups& backups, const EngineError& error);
/// Shows that box if there is such a backup. Returns the name of the backup to restore, or an empty
/// text if the user quits. Returns nothing if there is no backup to offer.
std::optional<std::string> OfferRestore(const Backups& backups, const EngineError& error);
/// Restores the backup of that name and reports the result, or why it failed, in a box. No program
/// may have the database open.
void RestoreBackup(Backups& backups, const std::string& name, const Date& now);

}  // namespace clb
