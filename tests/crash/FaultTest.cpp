// Writing fails below the storage. The program reports it and goes on, the file keeps what was
// reported saved, and everything works again after the fault is gone.
//
// CLB_CRASH_RUNS=1000 sets the number of runs of each kind of fault, CLB_CRASH_SEED=7 generates
// other sessions.

#include <algorithm>

#include "tests/crash/FaultSessions.h"
#include "tests/support/BackAndForth.h"

namespace clb {
namespace {

class FaultTest : public FaultSessions {
protected:
    void Run(Fault fault, const std::string& title)
    {
        OutcomeCounts figures(title);
        figures_ = &figures;
        const int wanted = Runs("CLB_CRASH_RUNS", 30);
        const int each = wanted > 60 ? 20 : 6;
        for (run_ = 0; run_ < wanted && !HasFailure();) {
            const CountedSitting sitting = NextSitting();
            for (int n = 0; n < each && run_ < wanted; ++n)
                run_ += RunOnce(sitting, PlanFor(fault, sitting)) ? 1 : 0;
        }
    }
    FaultPlan PlanFor(Fault fault, const CountedSitting& sitting)
    {
        FaultPlan plan{fault, SomeOperation(sitting), random_() % 2 == 0};
        if (fault == Fault::Full) {
            plan.once = false;
            plan.room = random_() % 3 > 0 ? 0 : static_cast<std::int64_t>(random_() % 6000);
        }
        return plan;
    }
    /// Returns false if the sitting ended before anything failed.
    bool RunOnce(const CountedSitting& sitting, const FaultPlan& plan)
    {
        const TempFolder folder(parent_);
        Unpack(*sitting.record.before, sitting.record.sitting, folder.Path());
        files_.Begin(plan);
        try {
            Disturb(sitting, folder);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what() << Where("");
        }
        const bool failed = files_.Failures() > 0;
        files_.Begin({});
        return failed;
    }
    void Disturb(const CountedSitting& sitting, const TempFolder& folder)
    {
        const RecordedSitting& record = sitting.record;
        InProcessProgram program(folder.Path(), quotes_.Address());
        if (program.FirstLine()["ok"] == false) {
            EXPECT_GT(files_.Failures(), 0) << ToLine(program.FirstLine());
            program.End();
            files_.Lift();
            Inspect(sitting.startKind, folder, {record.before, record.started}, "start refused");
            return;
        }
        if (files_.Failures() > 0)
            Inspect(sitting.startKind, folder, {record.started, record.started}, "no effect");
        const std::size_t failed = RunUntilFailure(program, record, folder);
        if (files_.Failures() > 0)
            GoOn(program, record, failed, folder);
    }
    /// Returns the request in which an operation failed. Up to there all is as in the undisturbed
    /// run.
    std::size_t RunUntilFailure(InProcessProgram& program, const RecordedSitting& record,
                                const TempFolder& folder)
    {
        MomentPtr last = record.started;
        for (std::size_t at = 0; at < record.requests.size(); ++at) {
            const RecordedRequest& request = record.requests[at];
            const auto failures = files_.Failures();
            const Json reply = AskIn(program, request, folder.Path());
            if (files_.Failures() != failures) {
                CheckFailed(program, request, last, reply, folder);
                return at;
            }
            EXPECT_EQ(reply["ok"] == true, request.good) << ToLine(reply) << Where(request.kind);
            last = request.after;
        }
        return record.requests.size();
    }
    /// What the user is shown must agree with what is in the file.
    void CheckFailed(InProcessProgram& program, const RecordedRequest& request,
                     const MomentPtr& last, const Json& reply, const TempFolder& folder)
    {
        const bool reported = reply["ok"] == false || BoxIn(program.Ask({{"do", "log"}}));
        figures_->Count(request.kind, "+ " + files_.FirstFailure());
        Allowed allowed{reported ? last : request.after, request.after};
        // Examines a copy of the file: reading the file itself would repair it before the program
        // does.
        const TempFolder copy(parent_);
        std::filesystem::copy(folder.Path("db"), copy.Path("db"));
        std::string outcome = "wrong";
        const std::string wrong = WithNothingFailing([&] {
            return WhatIsWrong(copy.Path(), allowed, static_cast<FirstOpener>(random_() % 3),
                               start_, outcome);
        });
        EXPECT_EQ(wrong, "") << ToLine(reply) << Where(request.kind) << ToLine(request.request);
        figures_->Count(request.kind, reported ? "told, " + outcome : "no effect, " + outcome);
    }
    /// Runs the work with no faults.
    template <class Work>
    std::string WithNothingFailing(Work work)
    {
        files_.Pause();
        std::string result = work();
        files_.Resume();
        return result;
    }
    static bool BoxIn(const Json& log)
    {
        return std::ranges::any_of(log["events"], [](const Json& event) {
            return event["event"] == "box" && (event["text"] == "Unable to update quotes." ||
                                               event["text"].get<std::string>().starts_with(
                                                   "Invalid data was found while importing"));
        });
    }
    /// The fault lasts for a while and ends; then everything must work.
    void GoOn(InProcessProgram& program, const RecordedSitting& record, std::size_t failed,
              const TempFolder& folder)
    {
        std::size_t lift = failed + random_() % 6;
        for (std::size_t at = failed + 1; at < record.requests.size(); ++at) {
            if (at > lift)
                files_.Lift();
            AskIn(program, record.requests[at], folder.Path());
        }
        files_.Lift();
        if (!IsEnabled(program)) {
            // A failed import leaves the window disabled, and the user is offered a new start.
            EXPECT_EQ(program.End(), "");
            figures_->Count("afterwards", "+ locked by a failed import");
        } else {
            WorksAgain(program, folder);
        }
        SoundNow(folder);
        const WayBack back = GoBackAndForth(folder.Path("db/clb.mdb"), record.started->start);
        EXPECT_EQ(back.past, Past::Whole) << back.why << Where("history");
    }
    static bool AddsRow(DrivenProgram& program)
    {
        const auto good = [&program](const Json& request) {
            return program.Ask(request)["ok"] == true;
        };
        for (int twice = 0; twice < 2; ++twice)
            program.Ask({{"do", "escape"}});
        return good({{"do", "set"}, {"control", "txtYear"}, {"to", "2006"}}) &&
               good({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 3}}) &&
               good({{"do", "click"}, {"text", "Wallet"}}) &&
               good({{"do", "edit"}, {"row", "new"}, {"col", 3}, {"text", "-1.2345"}}) &&
               good({{"do", "edit"}, {"row", "new"}, {"col", 2}, {"text", "after the fault"}}) &&
               program.Ask({{"do", "save"}})["saved"] == true;
    }
    /// The program that met the fault and a fresh one add the same row.
    void WorksAgain(InProcessProgram& program, const TempFolder& folder)
    {
        const TempFolder copy(parent_);
        std::filesystem::copy(folder.Path("db"), copy.Path("db"));
        EXPECT_TRUE(AddsRow(program)) << Where("afterwards");
        const std::string shown = PortraitOf(program);
        const TableDump stored = DumpOf(folder.Path("db/clb.mdb"));
        EXPECT_EQ(program.End(), "") << Where("afterwards");
        EXPECT_EQ(Difference(stored, DumpOf(folder.Path("db/clb.mdb"))), "") << Where("ending");
        {
            InProcessProgram fresh(copy.Path(), quotes_.Address());
            EXPECT_TRUE(AddsRow(fresh));
        }
        EXPECT_EQ(Difference(DumpOf(copy.Path("db/clb.mdb")), stored), "") << Where("afterwards");
        const MomentPtr now = Look(folder.Path(), nullptr);
        EXPECT_EQ(shown, PortraitOf(*now)) << Where("afterwards");
    }
    void SoundNow(const TempFolder& folder)
    {
        const std::string findings = FindingsIn(folder.Path());
        EXPECT_EQ(findings.find("damage: "), std::string::npos) << findings << Where("afterwards");
        EXPECT_EQ(findings.find("balance: "), std::string::npos) << findings << Where("afterwards");
    }
    void Inspect(const std::string& kind, const TempFolder& folder, const Allowed& allowed,
                 const std::string& report)
    {
        // What follows runs with no faults; afterwards the program itself goes on.
        files_.Pause();
        const TempFolder copy(parent_);
        std::filesystem::copy(folder.Path("db"), copy.Path("db"));
        const TableDump found = DumpOf(copy.Path("db/clb.mdb"));
        EXPECT_TRUE(found == allowed.before->dump || found == allowed.after->dump)
            << Difference(allowed.before->dump, found) << Where(kind);
        figures_->Count(kind, report + (found == allowed.before->dump ? ", before" : ", after"));
        figures_->Count(kind, "+ " + files_.FirstFailure());
        EXPECT_TRUE(start_(copy.Path())->FirstLine()["ok"] == true) << Where(kind);
        std::string outcome;
        EXPECT_EQ(WhatIsWrong(copy.Path(), {allowed.after, allowed.after}, FirstOpener::Program,
                              start_, outcome),
                  "");
        files_.Resume();
    }
    std::string Where(const std::string& kind) const
    {
        return "\n" + kind + ": " + files_.FirstFailure() + ", run " + std::to_string(run_) +
               ", seed " + std::to_string(seed_) + "\n";
    }

    OutcomeCounts* figures_ = nullptr;
    int run_ = 0;
};

TEST_F(FaultTest, AnErrorIsReportedAndWhatWasSavedStays)
{
    Run(Fault::Error, "Error");
}

TEST_F(FaultTest, AWriteThatEndsHalfWayIsReportedAndWhatWasSavedStays)
{
    Run(Fault::ShortWrite, "Short write");
}

TEST_F(FaultTest, AFullDiskIsReportedAndWhatWasSavedStays)
{
    Run(Fault::Full, "Full disk");
}

}  // namespace
}  // namespace clb
