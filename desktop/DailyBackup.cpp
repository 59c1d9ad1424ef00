#include "desktop/DailyBackup.h"

#include <sys/resource.h>

#include <QCoreApplication>
#include <QProcess>
#include <exception>

#include "data/Backups.h"
#include "desktop/FirstPaint.h"
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

}  // namespace

void BackUpAfterFirstPaint(QWidget& window, const std::string& folder, const Date& day)
{
    if (Backups(folder).HasDay(day))
        return;
    AfterFirstPaint(window,
                    [folder, day = Date::FromDays(day.Days())] { StartHelper(folder, day); });
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
