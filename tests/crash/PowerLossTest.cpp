// The power fails while the program works. Everything that was synchronised is on the disk, and any
// part of the rest. What the program had reported saved is there.
//
// CLB_CRASH_RUNS=1000 sets the number of power losses, CLB_CRASH_SEED=7 generates other sessions.

#include "tests/crash/DiskModel.h"
#include "tests/crash/FaultSessions.h"

namespace clb {
namespace {

/// Additional harm to the disk, to prove that the test notices it.
enum class Sabotage { None, SyncsDoNothing, JournalIsThrownAway };

class PowerLossTest : public FaultSessions {
protected:
    /// Returns what was wrong in the first run that left something wrong; empty if none did.
    std::string RunAll(int wanted, Sabotage sabotage, OutcomeCounts& figures)
    {
        const int each = wanted > 60 ? 20 : 6;
        for (run_ = 0; run_ < wanted;) {
            const CountedSitting sitting = NextSitting();
            for (int n = 0; n < each && run_ < wanted; ++n, ++run_) {
                const std::string wrong = RunOnce(sitting, sabotage, figures);
                if (!wrong.empty())
                    return kind_ + " at " + cut_ + ", run " + std::to_string(run_) + ", seed " +
                           std::to_string(seed_) + "\n" + wrong;
            }
        }
        return "";
    }
    std::string RunOnce(const CountedSitting& sitting, Sabotage sabotage, OutcomeCounts& figures)
    {
        DiskModel disk;
        const TempFolder folder(parent_);
        Unpack(*sitting.record.before, sitting.record.sitting, folder.Path());
        FaultPlan plan;
        plan.fault = Fault::PowerLoss;
        plan.at = SomeOperation(sitting);
        plan.dropsSyncs = sabotage == Sabotage::SyncsDoNothing;
        files_.Begin(plan, &disk);
        const Allowed allowed = RunUntilDark(sitting, folder.Path());
        cut_ = files_.Dark() ? files_.FirstFailure() : "rest";
        files_.Begin({});

        const TempFolder left(parent_);
        const bool journal = Restore(disk, folder.Path(), left, sabotage);
        std::string outcome = "wrong";
        std::string wrong;
        try {
            wrong = Inspect(sitting, left, allowed, outcome);
        } catch (const std::exception& error) {
            wrong = std::string("cannot be read: ") + error.what();
        }
        figures.Count(kind_, outcome);
        figures.Count(kind_, "+ cut at " + cut_);
        if (journal)
            figures.Count(kind_, "+ left a journal");
        return wrong;
    }
    /// Drives the sitting until the power fails, or to its end.
    Allowed RunUntilDark(const CountedSitting& sitting, const std::string& folder)
    {
        const RecordedSitting& record = sitting.record;
        kind_ = sitting.startKind;
        Allowed allowed{record.before, record.started};
        InProcessProgram program(folder, quotes_.Address());
        if (program.FirstLine()["ok"] == true && !files_.Dark())
            allowed.before = record.started;
        for (std::size_t at = 0; at < record.requests.size() && !files_.Dark(); ++at) {
            const RecordedRequest& request = record.requests[at];
            kind_ = request.kind;
            allowed.after = request.after;
            AskIn(program, request, folder);
            if (!files_.Dark())
                allowed.before = request.after;
        }
        return allowed;
    }
    /// Writes what is left into a fresh folder. Returns true if a journal is among it.
    bool Restore(const DiskModel& disk, const std::string& from, const TempFolder& to,
                 Sabotage sabotage)
    {
        bool journal = false;
        for (const auto& [path, bytes] : disk.AfterPowerLoss(random_)) {
            const bool isJournal = path.ends_with("-journal");
            if (isJournal && sabotage == Sabotage::JournalIsThrownAway)
                continue;
            journal = journal || isJournal;
            to.Write(path.substr(from.size() + 1), bytes);
        }
        return journal;
    }
    std::string Inspect(const CountedSitting& sitting, const TempFolder& left,
                        const Allowed& allowed, std::string& outcome)
    {
        const MomentPtr& old = sitting.record.before;
        if (allowed.before != old || old == sitting.record.started)
            return WhatIsWrong(left.Path(), allowed, static_cast<FirstOpener>(random_() % 3),
                               start_, outcome);
        // The file may have an older schema, which the next start brings up to date.
        const TableDump found = DumpOf(left.Path("db/clb.mdb"));
        const bool before = found == old->dump;
        if (!before && found != allowed.after->dump)
            return "neither the old schema nor the new one:\n" + Difference(old->dump, found);
        start_(left.Path())->FirstLine();
        const MomentPtr fresh = before ? sitting.record.started : allowed.after;
        std::string wrong =
            WhatIsWrong(left.Path(), {fresh, fresh}, FirstOpener::Program, start_, outcome);
        outcome = before ? "before" : "after";
        return wrong;
    }

    std::string kind_;
    std::string cut_;
    int run_ = 0;
};

TEST_F(PowerLossTest, WhatWasReportedSavedSurvivesThePowerLoss)
{
    OutcomeCounts figures("Power loss");
    EXPECT_EQ(RunAll(Runs("CLB_CRASH_RUNS", 60), Sabotage::None, figures), "");
}

TEST_F(PowerLossTest, ADiskThatOnlySaysItSynchronisedIsNoticed)
{
    OutcomeCounts figures("Power loss without synchronising");
    EXPECT_NE(RunAll(300, Sabotage::SyncsDoNothing, figures), "");
}

TEST_F(PowerLossTest, AJournalThatIsThrownAwayIsNoticed)
{
    OutcomeCounts figures("Power loss without journal");
    EXPECT_NE(RunAll(300, Sabotage::JournalIsThrownAway, figures), "");
}

}  // namespace
}  // namespace clb
