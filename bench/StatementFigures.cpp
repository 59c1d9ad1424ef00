#include "bench/StatementFigures.h"

#include <filesystem>
#include <stdexcept>

#include "bench/Bare.h"
#include "bench/BareText.h"
#include "bench/SameLedger.h"
#include "bench/Statement.h"
#include "bench/WorkFolder.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

constexpr std::int32_t kRows = 100'000;
constexpr std::int32_t kManyRows = 200'000;
constexpr const char* kAccount = "Household";
constexpr double kMostTimesOfQif = 2.5;
constexpr double kMostTimesOfExport = 1.6;

Cost ImportQif(const std::string& file, const std::string& folder, const std::string& option)
{
    return RunProgram({CLB_PROGRAM, "import", file, option, kAccount, "--home", folder});
}

Cost ImportBare(const std::string& file, const std::string& folder, const std::string& run)
{
    return RunProgram({CLB_BARE_QIF, file, DatabasePath(folder), kAccount, run});
}

/// The identifier that the program gave its rows. The reference uses the same.
std::string RunOf(const std::string& folder)
{
    BareDatabase database(DatabasePath(folder));
    BareStatement first = database.Prepare("SELECT FITID FROM Trans LIMIT 1");
    return first.Step() ? std::string(first.Text(0)) : std::string();
}

Figure TimesFigure(const std::string& name, const std::string& title, const Rounds& rounds,
                   double limit)
{
    Figure figure{.name = name, .title = title, .unit = "ms", .wallRatio = {}, .limit = limit};
    CompareTimes(figure, rounds, {});
    return figure;
}

Cost Export(const std::string& folder, const std::string& account, const std::string& file)
{
    return RunProgram({CLB_PROGRAM, "export", account, file, "--replace", "--home", folder});
}

/// Returns the text after the tag, up to the next tag.
std::string Element(const std::string& text, const std::string& tag)
{
    const std::size_t start = text.find(tag) + tag.size();
    return text.substr(start, text.find('<', start) - start);
}

/// The reference writes what the program has written, with the same second in the stamp.
Cost ExportBare(const std::string& folder, const std::string& ours, const std::string& reference)
{
    const std::string text = ReadFile(ours);
    const Cost cost = RunProgram({CLB_BARE_EXPORT, DatabasePath(folder), Element(text, "<ACCTID>"),
                                  reference, Element(text, "<DTSERVER>")});
    if (ReadFile(reference) != text)
        throw std::runtime_error("the exported files differ: " + ours + ", " + reference);
    return cost;
}

std::string BooksOf(const WorkFolder& work, const std::string& name, std::int32_t rows)
{
    const std::string statement = work.Path(name + ".ofx");
    WriteStatement(statement, rows);
    std::string folder = work.Deliver(name);
    RunProgram({CLB_PROGRAM, "import", statement, "--create", kAccount, "--home", folder});
    return folder;
}

double Bytes(const std::string& file)
{
    return static_cast<double>(std::filesystem::file_size(file));
}

}  // namespace

std::vector<Figure> MeasureQif(const WorkFolder& work, int rounds)
{
    const std::string file = work.Path("records.qif");
    WriteQif(file, kRows);
    Rounds first;
    Rounds again;
    for (int round = 0; round < rounds; ++round) {
        const std::string ours = work.Deliver("ours");
        const std::string reference = work.Deliver("reference");
        work.Flush();
        first.ours.push_back(ImportQif(file, ours, "--create"));
        work.Flush();
        first.reference.push_back(ImportBare(file, reference, RunOf(ours)));
        RequireSameLedger(DatabasePath(ours), DatabasePath(reference));
        work.Flush();
        again.ours.push_back(ImportQif(file, ours, "--map"));
        work.Flush();
        again.reference.push_back(ImportBare(file, reference, "again"));
        RequireSameLedger(DatabasePath(ours), DatabasePath(reference));
    }
    return {
        TimesFigure("qif", "import of 100,000 QIF records / bare storage", first, kMostTimesOfQif),
        TimesFigure("qifagain", "importing them again / bare storage", again, kMostTimesOfQif)};
}

Exports MeasureExports(const WorkFolder& work, const std::string& folder,
                       const std::string& account)
{
    const std::string ours = work.Path("ours.ofx");
    const Cost cost = Export(folder, account, ours);
    return {cost, ExportBare(folder, ours, work.Path("reference.ofx"))};
}

std::vector<Figure> MeasureExport(const WorkFolder& work, int rounds)
{
    const std::string many = BooksOf(work, "many", kRows);
    const std::string more = BooksOf(work, "more", kManyRows);
    const std::string ours = work.Path("ours.ofx");
    const std::string reference = work.Path("reference.ofx");
    const std::string large = work.Path("large.ofx");
    Rounds times;
    std::vector<double> growth;
    for (int round = 0; round < rounds; ++round) {
        work.Flush();
        times.ours.push_back(Export(many, kAccount, ours));
        work.Flush();
        times.reference.push_back(ExportBare(many, ours, reference));
        const Cost most = Export(more, kAccount, large);
        growth.push_back(static_cast<double>(most.peakBytes - times.ours.back().peakBytes));
    }
    constexpr double kMebi = 1024.0 * 1024.0;
    const double text = Bytes(large) - Bytes(ours);
    const Figure memory{.name = "exportmemory",
                        .title = "memory of exporting 100,000 rows more / their text",
                        .unit = "MiB",
                        .ours = Median(growth) / kMebi,
                        .reference = text / kMebi,
                        .ratio = Median(growth) / text,
                        .wallRatio = {},
                        .limit = 1};
    return {TimesFigure("export", "export of 100,000 transactions / bare storage", times,
                        kMostTimesOfExport),
            memory};
}

}  // namespace clb
