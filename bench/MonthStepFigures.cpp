#include "bench/MonthStepFigures.h"

#include <cstdlib>
#include <string>

#include "cli/Program.h"

namespace clb {
namespace {

constexpr int kSteps = 60;
constexpr double kFrame = 1.0 / 60;  // seconds

void Fill(const std::string& folder)
{
    NoForms forms;
    Program program(folder, forms);
    clsDatabase& data = program.Window().Data();
    data.Execute("INSERT INTO Account (AccountID, Type, Description) VALUES ('" +
                 std::string(kMonthStepAccount) + "', 'Bank', 'Current Account')");
    for (std::size_t row = 0; row < 2 * kMonthStepRows; ++row) {
        const std::string month = row < kMonthStepRows ? "1" : "2";
        const std::string number = std::to_string(row + 1);
        data.Execute(
            "INSERT INTO Trans (AccountID, PostDate, Description, PayeeName, Amount, "
            "Category, [Year], Period, [Sequence], SubSequence) VALUES ('" +
            std::string(kMonthStepAccount) + "', #" + std::to_string(kMonthStepYear) + "-" + month +
            "-" + std::to_string(row % 28 + 1) + "#, 'Corner Shop No. " + number +
            "', 'Card payment " + number + "', -" + std::to_string(row % 900) +
            ".25, 'Groceries', " + std::to_string(kMonthStepYear) + ", " + month + ", " + number +
            ", 0)");
    }
    program.Finish();
}

}  // namespace

std::vector<Figure> MeasureMonthStep(const WorkFolder& work, int rounds)
{
    const std::string folder = work.Deliver("monthstep");
    Fill(folder);
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
    Rounds steps;
    for (int round = 0; round < rounds; ++round) {
        Cost cost = RunProgram({CLB_BENCH_MONTH_STEP, folder, std::to_string(kSteps)});
        const Cost start = RunProgram({CLB_BENCH_MONTH_STEP, folder, "0"});
        cost.processor -= start.processor;
        cost.wall -= start.wall;
        steps.ours.push_back(cost);
        steps.reference.push_back({kSteps * kFrame, kSteps * kFrame, 0});
    }
    Figure figure{.name = "monthstep",
                  .title = "a month of 3,000 rows shown and painted / a frame",
                  .unit = "ms",
                  .wallRatio = {},
                  .limit = 1};
    CompareTimes(figure, steps, {kSteps, kSteps});
    return {figure};
}

}  // namespace clb
