#include "bench/WideFigures.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench/Bare.h"
#include "bench/Statement.h"
#include "bench/WideStatements.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

constexpr std::int32_t kRows = 100'000;
constexpr std::int32_t kSampleRows = kRows;
constexpr double kMebi = 1024.0 * 1024.0;
constexpr double kLargeFile = 50e6;
constexpr double kAllowedMemory = 32 * kMebi;
constexpr double kMostTimes = 1.5;
constexpr const char* kAccount = "Household";
constexpr std::array kKinds = {WideKind::OfxXml, WideKind::Csv, WideKind::Camt, WideKind::Mt940};

/// A folder whose book has the account of the files, with one row.
std::string KnowingAccount(const WorkFolder& work, const std::string& name)
{
    const std::string first = work.Path("first.ofx");
    WriteStatement(first, 1);
    std::string folder = work.Deliver(name);
    RunProgram(
        {CLB_PROGRAM, "import", first, "--create", kAccount, "--type", "Bank", "--home", folder});
    work.Flush();
    return folder;
}

/// The row that the book had may be one of the file's.
void RequireRows(const std::string& folder, std::int32_t rows)
{
    BareDatabase database(DatabasePath(folder));
    BareStatement count = database.Prepare("SELECT count(*) FROM Trans");
    if (!count.Step() || std::stol(std::string(count.Text(0))) < rows)
        throw std::runtime_error("rows of a statement are missing in " + folder);
}

Cost ImportStrict(const WorkFolder& work, const std::string& file)
{
    const std::string folder = KnowingAccount(work, "strict");
    const Cost cost = RunProgram({CLB_BENCH_IMPORT, file, folder, "with"});
    RequireRows(folder, kRows);
    return cost;
}

Cost ImportWide(const WorkFolder& work, const std::string& file, std::int32_t rows)
{
    const std::string folder = KnowingAccount(work, "wide");
    const Cost cost =
        RunProgram({CLB_PROGRAM, "import", file, "--map", kAccount, "--home", folder});
    RequireRows(folder, rows);
    return cost;
}

double Bytes(const std::string& file)
{
    return static_cast<double>(std::filesystem::file_size(file));
}

/// Writes a file of about 50 MB; returns the number of its rows.
std::int32_t WriteLarge(WideKind kind, const std::string& path)
{
    WriteWide(kind, path, kSampleRows);
    const auto rows = static_cast<std::int32_t>(kLargeFile / Bytes(path) * kSampleRows);
    WriteWide(kind, path, rows);
    return rows;
}

}  // namespace

std::vector<Figure> MeasureWide(const WorkFolder& work, int rounds)
{
    const std::string strict = work.Path("strict.ofx");
    WriteStatement(strict, kRows);
    std::array<Rounds, kKinds.size()> results;
    for (int round = 0; round < rounds; ++round) {
        const Cost reference = ImportStrict(work, strict);
        for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
            const std::string file = work.Path(NameOf(kKinds[kind]));
            if (round == 0)
                WriteWide(kKinds[kind], file, kRows);
            results[kind].ours.push_back(ImportWide(work, file, kRows));
            results[kind].reference.push_back(reference);
        }
    }
    std::vector<Figure> figures;
    for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
        const std::string name = NameOf(kKinds[kind]);
        Figure figure{.name = "wide" + name,
                      .title = "import of 100,000 as " + name + " / as OFX 1.02, strictly",
                      .unit = "ms",
                      .wallRatio = {},
                      .limit = kMostTimes};
        CompareTimes(figure, results[kind], {});
        figures.push_back(figure);
    }
    return figures;
}

std::vector<Figure> MeasureWidePeaks(const WorkFolder& work, int /*rounds*/)
{
    std::vector<Figure> figures;
    for (const WideKind kind : kKinds) {
        const std::string name = NameOf(kind);
        const std::string file = work.Path("large");
        const std::int32_t rows = WriteLarge(kind, file);
        const auto peak = static_cast<double>(ImportWide(work, file, rows).peakBytes);
        const double allowed = 2 * Bytes(file) + kAllowedMemory;
        figures.push_back({.name = "wide" + name + "peak",
                           .title = "its peak memory, 50 MB as " + name + " / twice that + 32 MiB",
                           .unit = "MiB",
                           .ours = peak / kMebi,
                           .reference = allowed / kMebi,
                           .ratio = peak / allowed,
                           .wallRatio = {},
                           .limit = 1});
    }
    return figures;
}

}  // namespace clb
