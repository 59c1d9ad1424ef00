#include "bench/ImportFigures.h"

#include <filesystem>

#include "bench/SameLedger.h"
#include "bench/Statement.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

constexpr std::int32_t kRows = 100'000;
constexpr std::int32_t kManyRows = 200'000;
constexpr std::int32_t kFewRows = 20'000;
constexpr const char* kAccount = "Household";

Cost Import(const std::string& file, const std::string& folder)
{
    return RunProgram(
        {CLB_PROGRAM, "import", file, "--create", kAccount, "--type", "Bank", "--home", folder});
}

Cost ImportBare(const std::string& file, const std::string& folder)
{
    return RunProgram({CLB_BARE_IMPORT, file, DatabasePath(folder), kAccount});
}

Cost ImportAfresh(const WorkFolder& work, const std::string& file)
{
    const std::string folder = work.Deliver("afresh");
    work.Flush();
    return Import(file, folder);
}

/// Results of the rounds with one statement of 100,000 transactions.
struct ImportRounds {
    Rounds first;  ///< our import and the reference
    Rounds again;  ///< our second import and our first
    double peakBytes = 0;
    double fileBytes = 0;
};

void MeasureRound(const WorkFolder& work, const std::string& file, ImportRounds& result)
{
    const std::string ours = work.Deliver("ours");
    const std::string reference = work.Deliver("reference");
    work.Flush();
    const Cost first = Import(file, ours);
    work.Flush();
    const Cost bare = ImportBare(file, reference);
    RequireSameLedger(DatabasePath(ours), DatabasePath(reference));
    work.Flush();
    const Cost second = Import(file, ours);
    RequireSameLedger(DatabasePath(ours), DatabasePath(reference));

    result.first.ours.push_back(first);
    result.first.reference.push_back(bare);
    result.again.ours.push_back(second);
    result.again.reference.push_back(first);
}

Figure MemoryFigure(const ImportRounds& result)
{
    std::vector<double> peaks;
    for (const Cost& cost : result.first.ours)
        peaks.push_back(static_cast<double>(cost.peakBytes));
    constexpr double kMebi = 1024.0 * 1024.0;
    const double peak = Median(peaks);
    Figure figure{.name = "memory",
                  .title = "peak memory of that import / the file's size",
                  .unit = "MiB",
                  .ours = peak / kMebi,
                  .reference = result.fileBytes / kMebi,
                  .ratio = peak / result.fileBytes,
                  .wallRatio = {},
                  .limit = 6};
    return figure;
}

}  // namespace

std::vector<Figure> MeasureImport(const WorkFolder& work, int rounds)
{
    const std::string file = work.Path("statement.ofx");
    WriteStatement(file, kRows);
    ImportRounds result;
    result.fileBytes = static_cast<double>(std::filesystem::file_size(file));
    for (int round = 0; round < rounds; ++round)
        MeasureRound(work, file, result);

    Figure import{.name = "import",
                  .title = "import of 100,000 transactions / bare storage",
                  .unit = "ms",
                  .wallRatio = {},
                  .limit = 2};
    CompareTimes(import, result.first, {});
    Figure again{.name = "again",
                 .title = "importing it again / the first time",
                 .unit = "ms",
                 .wallRatio = {},
                 .limit = 1};
    CompareTimes(again, result.again, {});
    return {import, MemoryFigure(result), again};
}

std::vector<Figure> MeasureScaling(const WorkFolder& work, int rounds)
{
    const std::string many = work.Path("many.ofx");
    const std::string few = work.Path("few.ofx");
    WriteStatement(many, kManyRows);
    WriteStatement(few, kFewRows);
    Rounds result;
    for (int round = 0; round < rounds; ++round) {
        result.ours.push_back(ImportAfresh(work, many));
        result.reference.push_back(ImportAfresh(work, few));
    }
    Figure figure{.name = "scaling",
                  .title = "time per row, of 200,000 / of 20,000",
                  .unit = "us",
                  .wallRatio = {},
                  .limit = 1.3};
    CompareTimes(figure, result, {kManyRows, kFewRows, 1e-6});
    return {figure};
}

}  // namespace clb
