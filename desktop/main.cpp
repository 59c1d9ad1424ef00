#include <cstdlib>
#include <iostream>

#include "desktop/DailyBackup.h"
#include "desktop/Desktop.h"

namespace {

bool HasDisplay()
{
    return std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY") ||
           std::getenv("QT_QPA_PLATFORM");
}

}  // namespace

int main(int argc, char** argv)
{
    std::optional<int> exitCode;
    const clb::StartOptions options = clb::ReadStartOptions(argc, argv, exitCode);
    if (exitCode)
        return *exitCode;
    if (options.dailyBackup)
        return clb::MakeDailyBackup(options.home, *options.dailyBackup);
    if (!HasDisplay()) {
        if (!options.automate && options.picture.empty()) {
            std::cerr << "ledgerbook: no display (neither DISPLAY nor WAYLAND_DISPLAY is set)\n";
            return 1;
        }
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
    }
    return clb::RunDesktop(argc, argv, options);
}
