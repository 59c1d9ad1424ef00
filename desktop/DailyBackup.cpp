#include "desktop/DailyBackup.h"

#include <sys/resource.h>

#include <QCoreApplication>
#include <QEvent>
#include <QProcess>
#include <QTimer>
#include <QWidget>
#include <exception>

#include "data/Backups.h"
#include "desktop/TextConvert.h"
#include "platform/ProgramFolder.h"

namespace clb {

namespace {

constexpr int LowPriority = 15;

void StartHelper(const std::string& folder, const Date& day)
{
    QProcess helper;
    helper.setProgram(QCoreApplication::applicationFilePath());
    helper.setArguments({QStringLiteral("--daily-backup"), ToQString(day.ToIso()),
                         QStringLiteral("--home"), ToQString(folder)});
    helper.setStandardInputFile(QProcess::nullDevice());
    helper.setStandardOutputFile(QProcess::nullDevice());
    helper.setStandardErrorFile(QProcess::nullDevice());
    helper.startDetached();
}

/// Waits for the first paint of the window that owns it.
class FirstPaint : public QObject {
public:
    FirstPaint(QWidget& window, std::string folder, Date day)
        : QObject(&window), folder_(std::move(folder)), day_(day)
    {
        window.installEventFilter(this);
    }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || seen_)
            return false;
        seen_ = true;
        QTimer::singleShot(0, this, [this] {
            StartHelper(folder_, day_);
            deleteLater();
        });
        return false;
    }

private:
    std::string folder_;
    Date day_;
    bool seen_ = false;
};

}  // namespace

void BackUpAfterFirstPaint(QWidget& window, const std::string& folder, const Date& day)
{
    if (!Backups(folder).HasDay(day))
        new FirstPaint(window, folder, Date::FromDays(day.Days()));
}

int MakeDailyBackup(const std::optional<std::string>& home, const Date& day)
{
    setpriority(PRIO_PROCESS, 0, LowPriority);
    try {
        Backups(ProgramFolder(PlacesOf(home))).Daily(day);
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

}  // namespace clb
