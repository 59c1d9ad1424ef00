#include <filesystem>
#include <memory>
#include <stdexcept>

#include "bench/BareRows.h"
#include "bench/BudgetFigures.h"
#include "bench/GrowthSteps.h"
#include "bench/RegisterFigures.h"
#include "bench/SavingFigures.h"
#include "cli/Program.h"
#include "data/Balances.h"
#include "data/clsDatabase.h"
#include "platform/ProgramFolder.h"
#include "views/clsView.h"

namespace clb {
namespace {

constexpr double kMilli = 1e-3;

/// What the net worth shows. Every value is read.
struct AccountsRead {
    std::int64_t worth = 0;  ///< in 1/10000 units
    std::size_t letters = 0;
};

AccountsRead ReadAccounts(BareDatabase& database)
{
    BareStatement accounts = database.Prepare(
        "SELECT AccountID, Description, Type, OpeningBalance, CurrentBalance FROM Account ORDER BY "
        "Type, Description");
    AccountsRead result;
    while (accounts.Step()) {
        for (const int text : {0, 1, 2})
            result.letters += accounts.Text(text).size();
        result.worth += accounts.Integer(3) + accounts.Integer(4);
    }
    return result;
}

/// Opens the books and shows the net worth, as each start of the program does.
GrowthCell MeasureOpening(const std::string& folder, int rounds)
{
    Rounds costs;
    for (int round = 0; round < rounds; ++round) {
        {
            const Stopwatch watch;
            NoForms forms;
            Program program(folder, forms);
            costs.ours.push_back(watch.Elapsed());
        }
        const Stopwatch watch;
        BareDatabase database(DatabasePath(folder));
        ReadAccounts(database);
        costs.reference.push_back(watch.Elapsed());
    }
    Figure figure;
    CompareTimes(figure, costs, {});
    return {figure.ours, figure.reference};
}

GrowthCell MeasureNetWorth(const std::string& folder, int rounds)
{
    constexpr int kShows = 100;
    NoForms forms;
    Program program(folder, forms);
    BareDatabase database(DatabasePath(folder));
    Rounds costs;
    for (int round = 0; round < rounds; ++round) {
        const Stopwatch watch;
        for (int show = 0; show < kShows; ++show)
            program.Window().View().Refresh();
        costs.ours.push_back(watch.Elapsed());
        const Stopwatch bareWatch;
        AccountsRead read;
        for (int show = 0; show < kShows; ++show)
            read = ReadAccounts(database);
        costs.reference.push_back(bareWatch.Elapsed());
        if (program.Window().txtTotal2.Text() != Money::FromScaled(read.worth).Grouped())
            throw std::runtime_error("the net worth and its reference differ");
    }
    Figure figure;
    CompareTimes(figure, costs, {kShows, kShows, kMilli});
    return {figure.ours, figure.reference};
}

/// Recomputes all balances; the reference does so in its copy.
GrowthCell MeasureBalances(const std::string& folder, const std::string& copy, int rounds)
{
    NoForms forms;
    Program program(folder, forms);
    BareDatabase database(DatabasePath(copy));
    Rounds costs;
    for (int round = 0; round < rounds; ++round) {
        const Stopwatch watch;
        UpdateBalances(program.Window().Data());
        program.Window().Data().Database().Settle();
        costs.ours.push_back(watch.Elapsed());
        const Stopwatch bareWatch;
        BareRows(database).Rebalance();
        costs.reference.push_back(bareWatch.Elapsed());
    }
    Figure figure;
    CompareTimes(figure, costs, {1, 1, kMilli});
    return {figure.ours, figure.reference};
}

GrowthCell Cell(const Rounds& costs, int count)
{
    Figure figure;
    CompareTimes(figure, costs, {static_cast<double>(count), static_cast<double>(count), kMilli});
    return {figure.ours, figure.reference};
}

}  // namespace

std::vector<GrowthLine> BooksLines()
{
    return {{"open, net worth shown", "ms", Growth::None, {}},
            {"net worth shown again", "ms", Growth::None, {}},
            {"another month's register", "ms", Growth::Free, {}},
            {"another month's budget", "ms", Growth::None, {}},
            {"a row edited and saved", "ms", Growth::None, {}},
            {"all balances recomputed", "ms", Growth::WithRows, {}}};
}

std::vector<GrowthCell> MeasureBooks(const WorkFolder& work, LedgerSize size, int rounds)
{
    const std::string folder = DeliverLedger(work, size);
    const std::string copy = CopyBooks(work, folder);
    std::vector<GrowthCell> cells = {
        MeasureOpening(folder, 4 * rounds),
        MeasureNetWorth(folder, rounds),
        Cell(MeasureRegisterReloads(folder, size, rounds), kRegisterReloads),
        Cell(MeasureBudgetReloads(folder, size, rounds), kBudgetReloads),
        Cell(MeasureSavings(folder, copy, size, rounds), kSavings),
        MeasureBalances(folder, copy, rounds)};
    std::filesystem::remove_all(folder);
    std::filesystem::remove_all(copy);
    return cells;
}

}  // namespace clb
