#include "bench/StartFigures.h"

#include <cstdlib>
#include <filesystem>

#include "bench/Ledger.h"
#include "bench/WorkFolder.h"

namespace clb {
namespace {

constexpr double kLimit = 1.6;
constexpr double kMemoryLimit = 1.5;

/// Needs no display and touches none of the user's files.
void KeepToItself(const WorkFolder& work)
{
    for (const char* place : {"XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"}) {
        const std::string folder = work.Path(place);
        std::filesystem::create_directories(folder);
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
        setenv(place, folder.c_str(), 1);
    }
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
}

Rounds MeasureStarts(const std::string& folder, int rounds)
{
    Rounds starts;
    const auto start = [&] {
        return RunProgram({CLB_WINDOW, "--until-painted", "--home", folder});
    };
    start();  // The first start unpacks the manual.
    RunProgram({CLB_BARE_WINDOW});
    for (int round = 0; round < rounds; ++round) {
        starts.ours.push_back(start());
        starts.reference.push_back(RunProgram({CLB_BARE_WINDOW}));
    }
    return starts;
}

Figure StartFigure(const std::string& name, const std::string& title, const Rounds& starts)
{
    Figure figure{.name = name,
                  .title = title,
                  .unit = "ms",
                  .ours = 0,
                  .reference = 0,
                  .ratio = 0,
                  .wallRatio = {},
                  .limit = kLimit};
    CompareTimes(figure, starts, {});
    return figure;
}

double PeakOf(const std::vector<Cost>& costs)
{
    std::vector<double> peaks;
    peaks.reserve(costs.size());
    for (const Cost& cost : costs)
        peaks.push_back(static_cast<double>(cost.peakBytes) / (1024.0 * 1024.0));
    return Median(peaks);
}

}  // namespace

std::vector<Figure> MeasureStart(const WorkFolder& work, int rounds)
{
    KeepToItself(work);
    // A start is so short that single ones differ much.
    const int starts = 4 * rounds;
    const Rounds empty = MeasureStarts(work.Deliver("start"), starts);
    const Rounds large = MeasureStarts(DeliverLedger(work, kLargeLedger), starts);
    const double ours = PeakOf(large.ours);
    const double reference = PeakOf(large.reference);
    return {StartFigure("start", "start to the painted window / a bare window", empty),
            StartFigure("startmillion", "the same in books of 1,000,000 transactions", large),
            {.name = "startpeak",
             .title = "memory of that start / the bare window's",
             .unit = "MiB",
             .ours = ours,
             .reference = reference,
             .ratio = ours / reference,
             .wallRatio = {},
             .limit = kMemoryLimit}};
}

}  // namespace clb
