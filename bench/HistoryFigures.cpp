#include "bench/HistoryFigures.h"

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench/Bare.h"
#include "bench/Ledger.h"
#include "bench/SavingFigures.h"
#include "bench/ShownPurse.h"
#include "bench/Statement.h"
#include "history/HistoryJson.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

constexpr std::int32_t kRows = 100'000;
constexpr std::int32_t kSteps = 10'000;
constexpr std::int64_t kAllowedBytesOfImport = 16;
constexpr std::int64_t kAllowedBytesOfEdit = 400;

double FileSize(const std::string& folder)
{
    return static_cast<double>(std::filesystem::file_size(DatabasePath(folder)));
}

/// Books in which the account of the statement is known.
std::string KnowingAccount(const WorkFolder& work, const std::string& name)
{
    const std::string first = work.Path("first.ofx");
    WriteStatement(first, 1);
    std::string folder = work.Deliver(name);
    RunProgram({CLB_PROGRAM, "import", first, "--create", "Household", "--type", "Bank", "--home",
                folder});
    work.Flush();
    return folder;
}

Figure BytesFigure(const std::string& name, const std::string& title, double bytes,
                   std::int64_t allowed)
{
    Figure figure{.name = name,
                  .title = title,
                  .unit = "bytes",
                  .ours = bytes,
                  .reference = static_cast<double>(allowed),
                  .ratio = bytes / static_cast<double>(allowed),
                  .wallRatio = {},
                  .limit = 1};
    return figure;
}

/// Reads all steps with all their texts; returns their number.
std::size_t ReadSteps(BareDatabase& bare)
{
    BareStatement steps = bare.Prepare(
        "SELECT Step, At, What, \"Rows\", Undone, Program FROM CvStep ORDER BY Step DESC");
    std::size_t read = 0;
    for (std::vector<std::string> texts; steps.Step(); ++read)
        for (const int column : {1, 2, 5})
            texts.emplace_back(steps.Text(column));
    return read;
}

}  // namespace

std::vector<Figure> MeasureHistoryOfImport(const WorkFolder& work, int rounds)
{
    const std::string file = work.Path("statement.ofx");
    WriteStatement(file, kRows);
    Rounds imports;
    Rounds undos;
    std::vector<double> bytes;
    for (int round = 0; round < rounds; ++round) {
        const std::string with = KnowingAccount(work, "with");
        const std::string without = KnowingAccount(work, "without");
        const Cost import = RunProgram({CLB_BENCH_IMPORT, file, with, "with"});
        work.Flush();
        imports.ours.push_back(import);
        imports.reference.push_back(RunProgram({CLB_BENCH_IMPORT, file, without, "without"}));
        bytes.push_back((FileSize(with) - FileSize(without)) / kRows);
        work.Flush();
        undos.ours.push_back(RunProgram({CLB_PROGRAM, "undo", "--home", with}));
        undos.reference.push_back(import);
    }
    Figure import{.name = "historyimport",
                  .title = "import of 100,000 with the history / without",
                  .unit = "ms",
                  .wallRatio = {},
                  .limit = 1.25};
    CompareTimes(import, imports, {});
    Figure undo{.name = "undo",
                .title = "taking that import back / the import",
                .unit = "ms",
                .wallRatio = {},
                .limit = 1};
    CompareTimes(undo, undos, {});
    return {import, undo,
            BytesFigure("importbytes", "the history's bytes for an imported row / 16",
                        Median(bytes), kAllowedBytesOfImport)};
}

std::vector<Figure> MeasureHistoryOfSaving(const WorkFolder& work, int rounds)
{
    const std::string folder = DeliverLedger(work, kLargeLedger);
    const std::string copy = CopyBooks(work, folder);
    Rounds result;
    const double before = FileSize(folder) - FileSize(copy);
    {
        ShownPurse with(folder, kLargeLedger);
        ShownPurse without(copy, kLargeLedger);
        without.WithoutHistory();
        std::int32_t saved = 0;
        for (int round = 0; round < rounds; ++round) {
            Cost ours;
            Cost reference;
            for (std::int32_t turn = 0; turn < kSavings; ++turn, ++saved) {
                const std::size_t row = static_cast<std::size_t>(saved) % with.Rows();
                ours += with.Save(row, AmountOf(saved));
                reference += without.Save(row, AmountOf(saved));
            }
            result.ours.push_back(ours);
            result.reference.push_back(reference);
        }
    }
    const double grown = FileSize(folder) - FileSize(copy) - before;
    Figure saving{.name = "historysaving",
                  .title = "saving an edited row with the history / without",
                  .unit = "us",
                  .wallRatio = {},
                  .limit = 2};
    CompareTimes(saving, result, {kSavings, kSavings, 1e-6});
    return {saving, BytesFigure("editbytes", "the history's bytes for an edited row / 400",
                                grown / (rounds * kSavings), kAllowedBytesOfEdit)};
}

std::vector<Figure> MeasureHistoryList(const WorkFolder& work, int rounds)
{
    const std::string folder = KnowingAccount(work, "steps");
    NoForms forms;
    Program program(folder, forms);
    History& history = program.Window().Steps();
    for (std::int32_t step = 0; step < kSteps; ++step) {
        history.Begin("Edit Transaction");
        program.Window().Data().Execute("UPDATE Trans SET PayeeName = '" + std::to_string(step) +
                                        "'");
    }
    program.Window().Settle();
    BareDatabase bare(DatabasePath(folder));
    Rounds result;
    for (int round = 0; round < rounds; ++round) {
        const Stopwatch ours;
        const std::vector<Step> listed = NewestSteps(history, kSteps);
        result.ours.push_back(ours.Elapsed());
        const Stopwatch reference;
        const std::size_t read = ReadSteps(bare);
        result.reference.push_back(reference.Elapsed());
        if (listed.size() != kSteps || read < kSteps)
            throw std::runtime_error("the history and its reference differ");
    }
    Figure list{.name = "historylist",
                .title = "listing a history of 10,000 steps / bare storage",
                .unit = "ms",
                .wallRatio = {},
                .limit = 3};
    CompareTimes(list, result, {});
    return {list};
}

}  // namespace clb
