#include "desktop/start/Desktop.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <iostream>
#include <memory>

#include "app/OtherPrograms.h"
#include "base/Interruption.h"
#include "base/Product.h"
#include "data/Backups.h"
#include "data/EmptyDatabase.h"
#include "data/ErrorText.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Appearance.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"
#include "desktop/ports/DateFormPort.h"
#include "desktop/ports/FileDialogPort.h"
#include "desktop/ports/MessageBoxPort.h"
#include "desktop/ports/PointerPort.h"
#include "desktop/ports/PrintJobPort.h"
#include "desktop/ports/QtModalHost.h"
#include "desktop/ports/ShellPort.h"
#include "desktop/start/DailyBackup.h"
#include "desktop/start/DemoBook.h"
#include "desktop/start/FirstPaint.h"
#include "desktop/start/NewBookOffer.h"
#include "desktop/start/PrintWindow.h"
#include "desktop/start/RestoreOffer.h"
#include "desktop/start/RunningProgram.h"
#include "desktop/start/SecondStart.h"
#include "desktop/start/StuckWindow.h"
#include "desktop/window/IncomingFiles.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/WindowMemory.h"
#include "desktop/window/WindowPresenter.h"
#include "desktop/window/WorkDisplay.h"
#include "engine/storage/EngineError.h"
#include "platform/CurlHttpClient.h"
#include "platform/HelpFolder.h"
#include "platform/ProgramFolder.h"
#include "platform/Signals.h"
#include "platform/StandardStreams.h"
#include "platform/SystemClock.h"

namespace clb {

namespace {

constexpr int kWatchMilliseconds = 1000;

std::string OpenFolder(const std::optional<std::string>& home)
{
    std::string folder = ProgramFolder(PlacesOf(home));
    RemoveProgramLeftovers(folder);
    if (!home && IsUnused(folder))
        DeliverFolder(folder, EmptyDatabase());
    return folder;
}

std::unique_ptr<IClock> MakeClock(const StartOptions& options)
{
    if (options.now)
        return std::make_unique<FixedClock>(*options.now);
    return std::make_unique<SystemClock>();
}

/// One run of the program: its ports, the controller and the window.
class Program {
public:
    Program(const std::string& folder, IClock& clock)
        : controller_({folder, clock, boxes_, files_, shell_, pointer_, dates_, forms_, printing_,
                       http_, "", true, true, true},
                      MainWindow::Metrics()),
          window_(controller_, events_)
    {
        events_.Attach([this] { Settle(); }, [this] { window_.Sync(); },
                       [this] { controller_.Abandon(); });
        events_.Before([this] { return FollowOthers(); });
        watch_.start(kWatchMilliseconds);
        QObject::connect(&watch_, &QTimer::timeout, [this] { LookForOthers(); });
        // Hiding the last window does not end the toolkit's loop. Unloading ends the program.
        controller_.Unloading().connect([] { QCoreApplication::quit(); });
        events_.WhenIdle([this] { stuck_.Follow(); });
    }
    ~Program()
    {
        events_.WhenIdle({});
        // The pointer belongs to the whole application, and another program may follow this one.
        pointer_.Pointer(pointer::Default);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    void Load() { controller_.Load(); }
    MainWindow& Window() { return window_; }
    frmController& Controller() { return controller_; }
    FileDialogPort& FileDialogs() { return files_; }
    ShellPort& Shell() { return shell_; }
    /// Whether the user ended the program to start it again.
    bool StartsAgain() const { return stuck_.StartsAgain(); }
    /// Closes the program because of a signal. A row that is being typed is not saved.
    void Close()
    {
        Interruption::Forget();
        if (!controller_.Loaded())
            return;
        controller_.Data().Database().Abandon();
        controller_.Grid.CancelEdit();
        controller_.Unload();
    }
    /// Name of the backup to restore before the program starts again; empty: none.
    const std::string& Restores() const { return stuck_.Restores(); }
    void Report(const std::optional<BackupFailure>& failure)
    {
        controller_.notices.Set("backup", failure ? failure->Text() : "");
        if (failure && failure->damaged)
            stuck_.Damaged(*failure);
    }
    IncomingFiles& Incoming() { return incoming_; }

private:
    void Settle()
    {
        if (events_.Nested())
            controller_.SettleDialog();
        else
            controller_.Settle();
    }
    /// Runs before each action. The action uses the row and node numbers that were drawn last.
    bool FollowOthers()
    {
        if (!controller_.Loaded())
            return true;
        controller_.Others().RowNumbersReported();
        controller_.Others().NodeNumbersReported();
        return controller_.Others().Follow();
    }
    /// Shows what another program has written while the user does nothing.
    void LookForOthers()
    {
        if (!events_.Running() && controller_.window.Enabled() && OthersHaveWritten())
            events_.Run([] {});
    }
    /// If the file cannot be read, the user's next action reports it, not this check once a second.
    bool OthersHaveWritten()
    {
        try {
            return controller_.Others().HaveWritten();
        } catch (const RuntimeError&) {
            return false;
        }
    }

    MessageBoxPort boxes_;
    FileDialogPort files_;
    ShellPort shell_{boxes_};
    PrintJobPort printing_;
    PointerPort pointer_;
    DateFormPort dates_;
    UserEvents events_{boxes_};
    QtModalHost forms_{events_};
    CurlHttpClient http_{{product::kTitle, false, {}, {}, [this] { window_.Work().KeepAlive(); }}};
    frmController controller_;
    MainWindow window_;
    QTimer watch_;
    StuckWindow stuck_{controller_, events_, window_};
    IncomingFiles incoming_{controller_, window_, events_};
};

bool ShowsWindow(const StartOptions& options)
{
    return !options.automate && options.picture.empty();
}

int Automate(const StartOptions& options, IClock& clock)
{
    WindowPresenter presenter;
    const EndingSignals signals(BreakOff::AtMarks);
    std::ios::sync_with_stdio(false);
    StandardInput input(EndingSignals::Descriptor());
    std::istream requests(&input);
    return RunAutomation(requests, std::cout,
                         {OpenFolder(options.home), clock, options.quoteService}, &presenter);
}

int Picture(MainWindow& window, const std::string& file)
{
    window.show();
    QCoreApplication::processEvents();
    if (WritePicture(window, file))
        return 0;
    std::cerr << "Cannot write " << file << '\n';
    return 1;
}

/// How a run of the program ended.
struct Ending {
    std::optional<int> exitCode;  ///< nothing: the program is to start again
    std::string restores;         ///< name of the backup to restore first; empty: none
    bool opened = true;           ///< the data was opened and the files were taken
};

/// Begins the day's backup, if this start makes one. The demonstration has none.
std::unique_ptr<DailyBackup> BeginBackup(Program& program, const std::string& folder,
                                         const StartOptions& options, IClock& clock)
{
    if (!options.untilPainted && !options.demo)
        return std::make_unique<DailyBackup>(
            program.Window(), folder, clock,
            [&program](const auto& failure) { program.Report(failure); });
    if (options.untilPainted)
        AfterFirstPaint(program.Window(), [] { QCoreApplication::quit(); });
    return nullptr;
}

/// The file that remembers the window. The demonstration's is lost with its folder, so its window
/// comes as at a first start.
QString MemoryFile(const StartOptions& options)
{
    return options.demo ? ToQString(DemoFolder()) + QStringLiteral("/window.ini")
                        : WindowMemory::File();
}

/// Runs the program once and imports these files.
Ending RunOnce(const std::string& folder, const StartOptions& options, IClock& clock,
               RunningProgram& running, const QStringList& files)
{
    const EndingSignals signals(BreakOff::AtMarks);
    Program program(folder, clock);
    const auto noBackup = Backups(folder).BeforeUpgrade(clock.Now());
    program.Load();
    program.Controller().notices.Set("upgrade", noBackup.value_or(""));
    DeliverHelp(folder);
    WindowMemory memory(MemoryFile(options), program.Window(), program.Controller(),
                        {program.FileDialogs(), program.Shell().Look()});
    memory.Restore();
    if (options.demo)
        program.Window().ShowAsDemo();
    const auto backup = BeginBackup(program, folder, options, clock);
    program.Window().OnDrop([&](const QStringList& paths) { program.Incoming().Take(paths); });
    program.Window().OnDemo([&options] { OpenDemo(options.now); });
    program.Window().show();
    program.Incoming().Take(files);
    running.Serve([&](const StartRequest& request) {
        Follow(request, program.Window(), program.Incoming());
    });
    const QSocketNotifier told(EndingSignals::Descriptor(), QSocketNotifier::Read);
    // This also ends the loops of dialogs, which then count as cancelled.
    QObject::connect(&told, &QSocketNotifier::activated, [] { QCoreApplication::exit(); });
    const int exitCode = QApplication::exec();
    running.Serve({});
    if (Interruption::Asked())
        program.Close();
    if (program.StartsAgain())
        return {std::nullopt, program.Restores(), true};
    return {exitCode, "", true};
}

/// Runs the program once. If the data cannot be opened, offers to restore a backup.
Ending RunOrRestore(const std::string& folder, const StartOptions& options, IClock& clock,
                    RunningProgram& running, const QStringList& files)
{
    try {
        return RunOnce(folder, options, clock, running, files);
    } catch (const EngineError& error) {
        const auto restores = OfferRestore(Backups(folder), error);
        if (!restores)
            throw;
        return {restores->empty() ? std::optional(1) : std::nullopt, *restores, false};
    }
}

int Run(const StartOptions& options, IClock& clock)
{
    if (options.demo)
        PrepareDemoFolder(DemoFolder());
    const std::string folder = options.demo ? DemoFolder() : OpenFolder(options.home);
    if (!options.picture.empty()) {
        Program program(folder, clock);
        Backups(folder).BeforeUpgrade(clock.Now());
        program.Load();
        return Picture(program.Window(), options.picture);
    }
    if (options.home && IsUnused(folder) && !OfferNewBook(folder))
        return 1;
    StartRequest request = RequestFor(options.files);
    RunningProgram running(folder);
    if (!running.BecomeFirst(request))
        return 0;
    if (options.demo)
        RenewDemoBook(folder, Date::FromDays(clock.Now().Days()));
    for (;;) {
        const Ending ending = RunOrRestore(folder, options, clock, running, request.files);
        if (ending.exitCode)
            return *ending.exitCode;
        if (ending.opened)
            request.files.clear();
        if (ending.restores.empty())
            continue;
        Backups backups(folder);
        RestoreBackup(backups, ending.restores, clock.Now());
    }
}

int ReportFailure(const StartOptions& options, const std::exception& error)
{
    if (ShowsWindow(options))
        MessageBoxPort().Show(ErrorText(error), box_style::Critical, product::kTitle);
    else
        std::cerr << ErrorText(error) << '\n';
    return 1;
}

}  // namespace

int RunDesktop(int argc, char** argv, const StartOptions& options)
{
    QApplication application(argc, argv);
    const Appearance appearance;
    QApplication::setApplicationName(QStringLiteral("ledgerbook"));
    QApplication::setApplicationDisplayName(QString());
    QApplication::setWindowIcon(icons::Application());
    const std::unique_ptr<IClock> clock = MakeClock(options);
    if (!options.print.empty())
        return PrintDocument(options.print, options.pdf);
    try {
        return options.automate ? Automate(options, *clock) : Run(options, *clock);
    } catch (const Interrupted&) {
        return 1;  // main ends with the signal
    } catch (const std::exception& error) {
        return ReportFailure(options, error);
    }
}

}  // namespace clb
