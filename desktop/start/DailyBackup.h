// Makes the day's backup in a separate process.
#pragma once
#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "data/Backups.h"

class QProcess;
class QWidget;

namespace clb {

class IClock;

/// Starts a process that makes the day's backup of a program folder's database, and reports how it
/// ended. Once in each run of the program, the process also checks the balances.
class DailyBackup : public QObject {
public:
    /// Called with the failure, or with nothing when the day has its backup.
    using Report = std::function<void(const std::optional<BackupFailure>&)>;

    /// Begins when the window has been painted for the first time. Tries again every ten minutes,
    /// in case the backup failed before or the window stays open for days. Reports the failure of
    /// an earlier start at once. Window and clock are borrowed and outlive this. The helper is the
    /// program to run; empty: this program.
    DailyBackup(QWidget& window, std::string folder, IClock& clock, Report report,
                QString helper = {});
    /// The process continues after this object is gone.
    ~DailyBackup() override;

private:
    void Look();
    void StartHelper();
    void Ended(bool made);
    void Tell(const std::optional<BackupFailure>& failure);

    std::string folder_;
    IClock& clock_;
    Report report_;
    QString program_;
    QTimer again_;
    std::unique_ptr<QProcess> helper_;
    std::unique_ptr<QProcess>
        ended_;            ///< the last process: it must not be deleted in its own signal
    bool looked_ = false;  ///< the helper was started at least once
};

/// Does the work of that process: makes the backup, and checks whether the balances fit their rows.
/// The caller has lowered the priority. Balances that do not fit are added to the list of noticed
/// ones, where the window sees them. Returns the exit code: 1 if there is no backup; the reason is
/// then printed in the lines of BackupFailure.
int MakeDailyBackup(const std::optional<std::string>& home, const Date& day);

}  // namespace clb
