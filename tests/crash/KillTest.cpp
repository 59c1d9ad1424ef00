// The program is killed while it works. What it had reported saved is there, and what it was doing
// is there completely or not at all.
//
// CLB_CRASH_RUNS=2000 sets the number of kills, CLB_CRASH_SEED=7 generates other sessions.

#include <gtest/gtest.h>

#include "tests/crash/KilledProgram.h"
#include "tests/crash/OutcomeCounts.h"
#include "tests/crash/Undisturbed.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

class KillTest : public testing::Test {
protected:
    using Clock = KilledProgram::Clock;

    /// Kills the program this many times, in sittings that begin at the moment.
    void KillInSittings(const MomentPtr& first, int kills, int killsEach)
    {
        MomentPtr moment = first;
        while (killed_ < kills && !HasFailure()) {
            const RecordedSitting record =
                RecordUndisturbed(script_.NextSitting(), moment, start_, quotes_, parent_);
            const std::string& findings = FindingsOf(*record.Last());
            ASSERT_EQ(findings.find("damage: "), std::string::npos) << findings;
            ASSERT_EQ(findings.find("balance: "), std::string::npos) << findings;
            for (int kill = 0; kill < killsEach && killed_ < kills; ++kill, ++killed_)
                KillIn(record);
            // Begins again now and then: sessions wear out in a file whose rows have all moved.
            moment = random_() % 12 == 0 ? first : record.Last();
        }
    }
    void KillIn(const RecordedSitting& record)
    {
        const std::size_t target = Target(record);
        const bool starting = target == record.requests.size();
        const std::string kind = starting ? "start" : record.requests[target].kind;
        const TempFolder folder(parent_);
        Unpack(*record.before, record.sitting, folder.Path());
        Allowed allowed{record.before, record.started};
        {
            KilledProgram program(folder.Path(), quotes_.Address());
            if (!starting) {
                program.FirstLine();
                allowed = RunUpTo(program, record, target, folder.Path());
            }
            const double seconds = starting ? record.startSeconds : record.requests[target].seconds;
            WaitSomewhere(program, folder.Path("db/clb.mdb-journal"), seconds);
            if (!program.Kill().empty())
                allowed.before = allowed.after;
        }
        Inspect(kind, folder, allowed);
    }
    /// Which request is killed: mostly one that writes. The number of requests means the start.
    std::size_t Target(const RecordedSitting& record)
    {
        std::vector<std::size_t> writing;
        for (std::size_t at = 0; at < record.requests.size(); ++at)
            if (record.requests[at].writes)
                writing.push_back(at);
        if (!writing.empty() && random_() % 10 != 0)
            return writing[random_() % writing.size()];
        return random_() % (record.requests.size() + 1);
    }
    /// Performs the requests before this one, and sends it.
    Allowed RunUpTo(KilledProgram& program, const RecordedSitting& record, std::size_t target,
                    const std::string& folder)
    {
        MomentPtr last = record.started;
        for (std::size_t at = 0; at < target; ++at) {
            const RecordedRequest& request = record.requests[at];
            quotes_.Price(request.price);
            const Json reply = program.Ask(InFolder(request.request, folder));
            EXPECT_EQ(reply["ok"] == true, request.good) << ToLine(reply);
            last = request.after;
        }
        quotes_.Price(record.requests[target].price);
        program.Send(InFolder(record.requests[target].request, folder));
        return {last, record.requests[target].after};
    }
    /// Waits for a random part of the time that the request takes undisturbed. Every second time
    /// this counts from the moment at which the journal shows that writing has begun.
    void WaitSomewhere(KilledProgram& program, const std::string& journal, double seconds)
    {
        const auto part = [seconds](double fraction) {
            return std::chrono::duration_cast<Clock::duration>(
                std::chrono::duration<double>(seconds * fraction));
        };
        const double fraction = std::uniform_real_distribution<>(0, 1)(random_);
        if (random_() % 2 == 0)
            program.RepliesBefore(Clock::now() + part(fraction * 1.1));
        else if (program.CreatesBefore(journal, Clock::now() + part(2)))
            program.RepliesBefore(Clock::now() + part(fraction * 0.8));
    }
    void Inspect(const std::string& kind, const TempFolder& folder, const Allowed& allowed)
    {
        const std::string settings = folder.Read("cvlb.ini");
        EXPECT_TRUE(settings == allowed.before->settings || settings == allowed.after->settings)
            << settings;
        if (folder.Holds("db/clb.mdb-journal"))
            figures_->Count(kind, "+ left a journal");
        // A file of an older schema must not be brought up to date before it is examined.
        const bool old = allowed.before->dump != allowed.after->dump && kind == "start";
        const auto first = old ? FirstOpener::Reader : static_cast<FirstOpener>(random_() % 3);
        std::string outcome = "wrong";
        const std::string wrong = WhatIsWrong(folder.Path(), allowed, first, start_, outcome);
        figures_->Count(kind, outcome);
        EXPECT_EQ(wrong, "") << "killed in " << kind << ", run " << killed_ << ", seed " << seed_;
    }
    /// Kills while a file of an older schema is brought up to date.
    void KillInUpgrades(int version, int kills)
    {
        const RecordedSitting record =
            RecordUndisturbed({}, FirstMoment(version), start_, quotes_, parent_);
        ASSERT_NE(record.before, record.started);
        const std::string kind = "upgrade " + std::to_string(version);
        for (int kill = 0; kill < kills && !HasFailure(); ++kill, ++killed_) {
            const TempFolder folder(parent_);
            Unpack(*record.before, {}, folder.Path());
            Allowed allowed{record.before, record.started};
            {
                KilledProgram program(folder.Path(), quotes_.Address());
                WaitSomewhere(program, folder.Path("db/clb.mdb-journal"), record.startSeconds);
                if (!program.Kill().empty())
                    allowed.before = allowed.after;
            }
            InspectUpgrade(kind, folder, allowed, record);
        }
    }
    void InspectUpgrade(const std::string& kind, const TempFolder& folder, const Allowed& allowed,
                        const RecordedSitting& record)
    {
        if (folder.Holds("db/clb.mdb-journal"))
            figures_->Count(kind, "+ left a journal");
        const TableDump found = DumpOf(folder.Path("db/clb.mdb"));
        const bool isOld = found == allowed.before->dump;
        EXPECT_TRUE(isOld || found == allowed.after->dump)
            << Difference(allowed.before->dump, found);
        figures_->Count(kind, allowed.before == allowed.after ? "saved"
                              : isOld                         ? "before"
                                                              : "after");
        // The next start brings it up to date, if that is still to be done.
        start_(folder.Path())->FirstLine();
        std::string outcome;
        EXPECT_EQ(WhatIsWrong(folder.Path(), {record.started, record.started}, FirstOpener::Program,
                              start_, outcome),
                  "");
    }

    std::uint32_t seed_ = static_cast<std::uint32_t>(Runs("CLB_CRASH_SEED", 1));
    int wanted_ = Runs("CLB_CRASH_RUNS", 40);
    std::mt19937 random_{seed_};
    SessionScript script_{seed_};
    OnePrice quotes_;
    // The test uses a real disk, on which writing takes time.
    std::string parent_ = std::filesystem::temp_directory_path().string();
    Starter start_ = [this](const std::string& folder) {
        return std::make_unique<KilledProgram>(folder, quotes_.Address());
    };
    std::unique_ptr<OutcomeCounts> figures_ = std::make_unique<OutcomeCounts>("Killed");
    int killed_ = 0;
};

TEST_F(KillTest, WhatWasReportedSavedSurvivesAndTheRestIsWholeOrNotThere)
{
    KillInSittings(FirstMoment(2), wanted_, wanted_ > 60 ? 20 : 6);
}

TEST_F(KillTest, AnUpgradeLeavesTheOldSchemaOrTheNewOne)
{
    for (const int version : {0, 1})
        KillInUpgrades(version, std::max(6, wanted_ / 10));
}

}  // namespace
}  // namespace clb
