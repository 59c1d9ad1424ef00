#include "desktop/start/DailyBackup.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QPointer>
#include <QProcess>
#include <iostream>
#include <utility>
#include <vector>

#include "app/BalanceWatch.h"
#include "base/RuntimeError.h"
#include "desktop/look/TextConvert.h"
#include "desktop/start/FirstPaint.h"
#include "platform/ProgramFolder.h"
#include "ports/IClock.h"

namespace clb {

namespace {

constexpr int kLookEvery = 10 * 60 * 1000;  // milliseconds

std::unique_ptr<QProcess> HelperFor(const QString& program, const std::string& folder,
                                    const Date& day)
{
    auto helper = std::make_unique<QProcess>();
    helper->setProgram(program.isEmpty() ? QCoreApplication::applicationFilePath() : program);
    helper->setArguments({QStringLiteral("--daily-backup"), ToQString(day.ToIso()),
                          QStringLiteral("--home"), ToQString(folder)});
    helper->setStandardInputFile(QProcess::nullDevice());
    helper->setStandardErrorFile(QProcess::nullDevice());
    // The backup continues when the window's session ends.
    helper->setChildProcessModifier([] { setsid(); });
    return helper;
}

/// Keeps the object until the program has ended, because its destructor would kill the process.
void LetGoOn(QProcess* helper)
{
    static auto& goOn = *new std::vector<QProcess*>;
    goOn.push_back(helper);
}

}  // namespace

DailyBackup::DailyBackup(QWidget& window, std::string folder, IClock& clock, Report report,
                         QString helper)
    : folder_(std::move(folder)),
      clock_(clock),
      report_(std::move(report)),
      program_(std::move(helper))
{
    connect(&again_, &QTimer::timeout, this, [this] { Look(); });
    AfterFirstPaint(window, [self = QPointer<DailyBackup>(this)] {
        if (!self)
            return;
        self->again_.start(kLookEvery);
        self->Look();
    });
    if (const auto failure = Backups(folder_).KeptFailure(); failure && !failure->damaged)
        report_(failure);
}

DailyBackup::~DailyBackup()
{
    if (!helper_)
        return;
    helper_->disconnect(this);
    LetGoOn(helper_.release());
}

void DailyBackup::Look()
{
    const Date now = clock_.Now();
    if (helper_)
        return;
    const bool made = Backups(folder_).HasDay(now);
    if (made)
        report_(std::nullopt);
    const bool first = !std::exchange(looked_, true);
    // The first run also checks the balances.
    if (!made || first)
        StartHelper();
}

void DailyBackup::StartHelper()
{
    helper_ = HelperFor(program_, folder_, Date::FromDays(clock_.Now().Days()));
    connect(helper_.get(), &QProcess::finished, this,
            [this](int exitCode, QProcess::ExitStatus status) {
                Ended(exitCode == 0 && status == QProcess::NormalExit);
            });
    connect(helper_.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            Ended(false);
    });
    helper_->start();
}

void DailyBackup::Ended(bool made)
{
    const std::string lines = helper_->readAllStandardOutput().toStdString();
    ended_ = std::move(helper_);
    if (made || Backups(folder_).HasDay(clock_.Now()))
        return Tell(std::nullopt);
    if (const auto failure = BackupFailure::FromLines(lines))
        return Tell(failure);
    const Backups backups(folder_);
    const BackupFailure broken{false, backups.LastGood(),
                               "The program that makes it was stopped, or could not start."};
    backups.Keep(broken);
    Tell(broken);
}

void DailyBackup::Tell(const std::optional<BackupFailure>& failure)
{
    // A damaged file does not repair itself, so reading all of it again is useless.
    if (failure && failure->damaged)
        again_.stop();
    report_(failure);
}

int MakeDailyBackup(const std::optional<std::string>& home, const Date& day)
{
    const std::string folder = ProgramFolder(PlacesOf(home));
    const auto failure = Backups(folder).Daily(day);
    if (failure)
        std::cout << failure->Lines();
    try {
        NoteOddBalances(folder, day);
    } catch (const RuntimeError&) {
        // The next start checks again. "clb check" reports what cannot be read.
    }
    return failure ? 1 : 0;
}

}  // namespace clb
