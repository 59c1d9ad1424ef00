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

/// Has the day's backup of a program folder's database made by a process of its own, and reports
/// how that ended. The process also looks at the balances, once in each run of the program.
class DailyBackup : public QObject {
public:
    /// Called with what failed, or with nothing once the day has its backup.
    using Report = std::function<void(const std::optional<BackupFailure>&)>;

    /// Begins once the window has been painted for the first time. Looks again every ten minutes:
    /// for what failed before, and for a window that is open for days. Reports the failure of an
    /// earlier start at once. Window and clock are borrowed and outlive this. The helper is the
    /// program to run; empty: this one.
    DailyBackup(QWidget& window, std::string folder, IClock& clock, Report report,
                QString helper = {});
    /// The process goes on by itself.
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
    std::unique_ptr<QProcess> ended_;  ///< the last one: it must not be deleted in its own signal
    bool looked_ = false;              ///< the helper was started once
};

/// What that process does: the backup, and a look whether the balances fit their rows. Those that
/// do not are added to the list of noticed ones, where the window sees them. It leaves the machine
/// to others. Returns its exit code: 1 when there is no backup, and prints why in the lines of
/// BackupFailure.
int MakeDailyBackup(const std::optional<std::string>& home, const Date& day);

}  // namespace clb
