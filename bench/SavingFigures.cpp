#include "bench/SavingFigures.h"

#include <filesystem>
#include <stdexcept>

#include "bench/BareSaving.h"
#include "bench/Ledger.h"
#include "bench/SameLedger.h"
#include "bench/ShownPurse.h"
#include "platform/ProgramFolder.h"

namespace clb {
std::string CopyBooks(const WorkFolder& work, const std::string& folder)
{
    std::string copy = work.Deliver("copy");
    std::filesystem::copy_file(DatabasePath(folder), DatabasePath(copy),
                               std::filesystem::copy_options::overwrite_existing);
    work.Flush();
    return copy;
}

Rounds MeasureSavings(const std::string& folder, const std::string& copy, LedgerSize size,
                      int rounds)
{
    ShownPurse shown(folder, size);
    BareDatabase database(DatabasePath(copy));
    BareSaving reference(database, LedgerPurse(), LastPurseMonth(size));
    if (shown.Rows() != reference.Rows())
        throw std::runtime_error("the register and its reference differ");
    Rounds result;
    std::int32_t saved = 0;
    for (int round = 0; round < rounds; ++round) {
        Cost ours;
        Cost bare;
        for (std::int32_t turn = 0; turn < kSavings; ++turn, ++saved) {
            const std::size_t row = static_cast<std::size_t>(saved) % reference.Rows();
            const Money amount = AmountOf(saved);
            ours += shown.Save(row, amount);
            const Stopwatch watch;
            const std::int64_t balance = reference.Save(row, amount.Scaled());
            bare += watch.Elapsed();
            if (shown.Balance() != Money::FromScaled(balance).Grouped())
                throw std::runtime_error("the balance and its reference differ");
        }
        result.ours.push_back(ours);
        result.reference.push_back(bare);
    }
    return result;
}

namespace {

Rounds MeasureAmongOthers(const std::string& largeFolder, const std::string& smallFolder,
                          int rounds)
{
    ShownPurse large(largeFolder, kLargeLedger);
    ShownPurse small(smallFolder, kSmallLedger);
    if (large.Rows() != small.Rows())
        throw std::runtime_error("the months of both books differ");
    Rounds result;
    std::int32_t saved = 0;
    for (int round = 0; round < rounds; ++round) {
        Cost amongMany;
        Cost amongFew;
        for (std::int32_t turn = 0; turn < kSavings; ++turn, ++saved) {
            const std::size_t row = static_cast<std::size_t>(saved) % small.Rows();
            amongMany += large.Save(row, AmountOf(saved));
            amongFew += small.Save(row, AmountOf(saved));
        }
        result.ours.push_back(amongMany);
        result.reference.push_back(amongFew);
    }
    return result;
}

}  // namespace

std::vector<Figure> MeasureSaving(const WorkFolder& work, int rounds)
{
    const std::string large = DeliverLedger(work, kLargeLedger);
    const std::string small = DeliverLedger(work, kSmallLedger);
    const std::string copy = CopyBooks(work, large);

    Figure saving{.name = "saving",
                  .title = "saving an edited row among 1,000,000 / bare storage",
                  .unit = "us",
                  .wallRatio = {},
                  .limit = 3};
    CompareTimes(saving, MeasureSavings(large, copy, kLargeLedger, rounds),
                 {kSavings, kSavings, 1e-6});
    RequireSameLedger(DatabasePath(large), DatabasePath(copy));
    Figure others{.name = "others",
                  .title = "saving it, others' 1,000,000 / others' 10,000",
                  .unit = "us",
                  .wallRatio = {},
                  .limit = 1.3};
    CompareTimes(others, MeasureAmongOthers(large, small, rounds), {kSavings, kSavings, 1e-6});
    return {saving, others};
}

}  // namespace clb
