#include "desktop/Desktop.h"

#include <QApplication>
#include <iostream>
#include <memory>

#include "data/Backups.h"
#include "data/EmptyDatabase.h"
#include "data/Trouble.h"
#include "desktop/Appearance.h"
#include "desktop/DailyBackup.h"
#include "desktop/DateFormPort.h"
#include "desktop/FileDialogPort.h"
#include "desktop/FirstPaint.h"
#include "desktop/Icons.h"
#include "desktop/IncomingFiles.h"
#include "desktop/MainWindow.h"
#include "desktop/MessageBoxPort.h"
#include "desktop/PointerPort.h"
#include "desktop/PrintJobPort.h"
#include "desktop/PrintWindow.h"
#include "desktop/QtModalHost.h"
#include "desktop/SecondStart.h"
#include "desktop/ShellPort.h"
#include "desktop/StuckWindow.h"
#include "desktop/UserEvents.h"
#include "desktop/WindowMemory.h"
#include "desktop/WindowPresenter.h"
#include "desktop/WorkDisplay.h"
#include "platform/CurlHttpClient.h"
#include "platform/HelpFolder.h"
#include "platform/ProgramFolder.h"
#include "platform/RunningProgram.h"
#include "platform/SystemClock.h"

namespace clb {

namespace {

std::string OpenFolder(const std::optional<std::string>& home)
{
    const std::string folder = ProgramFolder(PlacesOf(home));
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

/// A program of one user: its ports made real, the controller, the window.
class Program {
public:
    Program(const std::string& folder, IClock& clock)
        : controller_({folder, clock, boxes_, files_, shell_, pointer_, dates_, forms_, printing_,
                       http_, ""},
                      MainWindow::Metrics()),
          window_(controller_, events_)
    {
        events_.Attach([this] { controller_.Settle(); }, [this] { window_.Sync(); },
                       [this] { controller_.Abandon(); });
        // Hiding the last window does not end the toolkit's loop; unloading it ends the program.
        controller_.Unloading().connect([] { QCoreApplication::quit(); });
        events_.WhenIdle([this] { stuck_.Follow(); });
    }
    ~Program()
    {
        events_.WhenIdle({});
        // It is the whole application's, and another program may follow.
        pointer_.Pointer(pointer::Default);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    void Load() { controller_.Load(); }
    MainWindow& Window() { return window_; }
    frmController& Controller() { return controller_; }
    /// Whether the user ended it to have a new one.
    bool StartsAgain() const { return stuck_.StartsAgain(); }
    IncomingFiles& Incoming() { return incoming_; }

private:
    MessageBoxPort boxes_;
    FileDialogPort files_;
    ShellPort shell_;
    PrintJobPort printing_;
    PointerPort pointer_;
    DateFormPort dates_;
    UserEvents events_{boxes_};
    QtModalHost forms_{events_};
    CurlHttpClient http_{{product::Title, false, {}, {}, [this] { window_.Work().KeepAlive(); }}};
    frmController controller_;
    MainWindow window_;
    StuckWindow stuck_{controller_, events_, window_};
    IncomingFiles incoming_{controller_, window_, events_, boxes_,
                            [this](const std::string& path) { files_.AnswerNext(path); }};
};

bool ShowsWindow(const StartOptions& options)
{
    return !options.automate && options.picture.empty();
}

int Automate(const StartOptions& options, IClock& clock)
{
    WindowPresenter presenter;
    std::ios::sync_with_stdio(false);
    return RunAutomation(std::cin, std::cout,
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

/// Runs the program once, with these files to import; nothing when it is to start again.
std::optional<int> RunOnce(const std::string& folder, const StartOptions& options, IClock& clock,
                           RunningProgram& running, const QStringList& files)
{
    Program program(folder, clock);
    Backups(folder).BeforeUpgrade(clock.Now());
    program.Load();
    DeliverHelp(folder);
    WindowMemory memory(WindowMemory::File(), program.Window(), program.Controller());
    memory.Restore();
    if (options.untilPainted)
        AfterFirstPaint(program.Window(), [] { QCoreApplication::quit(); });
    else
        BackUpAfterFirstPaint(program.Window(), folder, clock.Now());
    program.Window().OnDrop([&](const QStringList& paths) { program.Incoming().Take(paths); });
    const auto laterStarts = ServeLaterStarts(running, program.Window(), program.Incoming());
    program.Window().show();
    program.Incoming().Take(files);
    const int exitCode = QApplication::exec();
    return program.StartsAgain() ? std::nullopt : std::optional(exitCode);
}

int Run(const StartOptions& options, IClock& clock)
{
    const std::string folder = OpenFolder(options.home);
    if (!options.picture.empty()) {
        Program program(folder, clock);
        Backups(folder).BeforeUpgrade(clock.Now());
        program.Load();
        return Picture(program.Window(), options.picture);
    }
    QStringList files = AbsolutePaths(options.files);
    RunningProgram running(folder);
    if (!running.BecomeFirst() && HandOver(running, files))
        return 0;
    for (;; files.clear())
        if (const auto exitCode = RunOnce(folder, options, clock, running, files))
            return *exitCode;
}

int ReportFailure(const StartOptions& options, const std::exception& error)
{
    if (ShowsWindow(options))
        MessageBoxPort().Show(TroubleText(error), box_style::Critical, frmController::Title);
    else
        std::cerr << TroubleText(error) << '\n';
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
    } catch (const std::exception& error) {
        return ReportFailure(options, error);
    }
}

}  // namespace clb
