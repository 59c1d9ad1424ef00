#include <sys/resource.h>

#include <cstdlib>
#include <iostream>

#include "base/Interruption.h"
#include "desktop/start/DailyBackup.h"
#include "desktop/start/Desktop.h"
#include "platform/Signals.h"
#include "platform/StandardStreams.h"

namespace {

/// Of the process that makes the day's backup while the user works.
constexpr int kLowPriority = 15;

bool HasDisplay()
{
    return std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr ||
           std::getenv("QT_QPA_PLATFORM") != nullptr;
}

int Start(int argc, char** argv)
{
    std::optional<int> exitCode;
    const clb::StartOptions options = clb::ReadStartOptions(argc, argv, exitCode);
    if (exitCode)
        return *exitCode;
    if (options.dailyBackup) {
        setpriority(PRIO_PROCESS, 0, kLowPriority);
        return clb::MakeDailyBackup(options.home, *options.dailyBackup);
    }
    if (!HasDisplay()) {
        if (!options.automate && options.picture.empty()) {
            std::cerr << "ledgerbook: no display (neither DISPLAY nor WAYLAND_DISPLAY is set)\n";
            return 1;
        }
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
    }
    return clb::RunDesktop(argc, argv, options);
}

}  // namespace

int main(int argc, char** argv)
{
    clb::PrepareProcess();
    const int exitCode = Start(argc, argv);
    const std::string unwritten = clb::FinishOutput();
    if (!unwritten.empty())
        std::cerr << "ledgerbook: " << unwritten << '\n';
    if (clb::Interruption::Asked())
        clb::EndBySignal();
    return exitCode == 0 && !unwritten.empty() ? 1 : exitCode;
}
