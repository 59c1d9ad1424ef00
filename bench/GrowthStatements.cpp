#include <algorithm>
#include <filesystem>
#include <string>

#include "bench/Bare.h"
#include "bench/GrowthSteps.h"
#include "bench/SameLedger.h"
#include "bench/Statement.h"
#include "bench/StatementFigures.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

constexpr std::int64_t kLongestStatement = 250'000;
constexpr double kMebi = 1024.0 * 1024.0;

struct Statement {
    std::string file;
    std::string account;
};

std::vector<Statement> WriteStatements(const WorkFolder& work, std::int64_t transactions)
{
    std::vector<Statement> statements;
    for (std::int64_t left = transactions; left > 0; left -= kLongestStatement) {
        const std::string account = "4417-" + std::to_string(1000 + statements.size());
        statements.push_back({work.Path("statement-" + account + ".ofx"), account});
        WriteStatement(statements.back().file,
                       static_cast<std::int32_t>(std::min(left, kLongestStatement)), account);
    }
    return statements;
}

Cost Import(const Statement& statement, const std::string& folder)
{
    return RunProgram({CLB_PROGRAM, "import", statement.file, "--create", statement.account,
                       "--type", "Bank", "--home", folder});
}

Cost ImportBare(const Statement& statement, const std::string& folder)
{
    return RunProgram({CLB_BARE_IMPORT, statement.file, DatabasePath(folder), statement.account});
}

template <typename ImportOne>
Cost ImportAll(const WorkFolder& work, const std::vector<Statement>& statements,
               const std::string& folder, const ImportOne& import)
{
    Cost all;
    for (const Statement& statement : statements) {
        work.Flush();
        const Cost one = import(statement, folder);
        all += one;
        all.peakBytes = std::max(all.peakBytes, one.peakBytes);
    }
    return all;
}

double MebiBytes(std::int64_t bytes)
{
    return static_cast<double>(bytes) / kMebi;
}

double FileSize(const std::string& folder)
{
    return MebiBytes(static_cast<std::int64_t>(std::filesystem::file_size(DatabasePath(folder))));
}

}  // namespace

std::vector<GrowthLine> StatementLines()
{
    return {{"import", "s", Growth::WithRows, {}},
            {"import again", "s", Growth::WithRows, {}},
            {"peak memory of the import", "MiB", Growth::Free, {}},
            {"size of the data file", "MiB", Growth::WithRows, {}},
            {"export of one account", "s", Growth::Free, {}},
            {"peak memory of the export", "MiB", Growth::Free, {}}};
}

std::vector<GrowthCell> MeasureStatements(const WorkFolder& work, std::int64_t transactions)
{
    const std::vector<Statement> statements = WriteStatements(work, transactions);
    const std::string ours = work.Deliver("grown");
    const std::string reference = work.Deliver("grown-bare");
    const Cost first = ImportAll(work, statements, ours, Import);
    const Cost firstBare = ImportAll(work, statements, reference, ImportBare);
    const Cost again = ImportAll(work, statements, ours, Import);
    const Cost againBare = ImportAll(work, statements, reference, ImportBare);
    RequireSameLedger(DatabasePath(ours), DatabasePath(reference));
    const Exports exports = MeasureExports(work, ours, statements.front().account);
    std::vector<GrowthCell> cells = {
        {first.processor, firstBare.processor},
        {again.processor, againBare.processor},
        {MebiBytes(first.peakBytes), MebiBytes(firstBare.peakBytes)},
        {FileSize(ours), FileSize(reference)},
        {exports.ours.processor, exports.reference.processor},
        {MebiBytes(exports.ours.peakBytes), MebiBytes(exports.reference.peakBytes)}};
    for (const Statement& statement : statements)
        std::filesystem::remove(statement.file);
    std::filesystem::remove_all(ours);
    std::filesystem::remove_all(reference);
    return cells;
}

}  // namespace clb
