// What the window shows of a row that could not be saved.

#include "tests/crash/FaultSessions.h"

namespace clb {
namespace {

class ShownAfterFaultTest : public FaultSessions {
protected:
    ShownAfterFaultTest() { Unpack(*FirstMoment(2), {}, folder_.Path()); }

    static void Fill(DrivenProgram& program, const std::vector<std::string>& cells)
    {
        for (std::size_t cell = 0; cell < cells.size(); ++cell)
            program.Ask({{"do", "edit"}, {"row", "new"}, {"col", cell + 1}, {"text", cells[cell]}});
    }
    /// Saves the row while the operation at that place fails. Returns false if there is no such
    /// operation.
    bool FailToSave(DrivenProgram& program, std::int64_t at)
    {
        FaultPlan plan;
        plan.fault = Fault::Error;
        plan.at = at;
        files_.Begin(plan);
        const Json reply = program.Ask({{"do", "save"}});
        files_.Lift();
        // During the fault the file could not be read again.
        program.Ask({{"do", "window"}});
        return reply["ok"] == false;
    }

    TempFolder folder_{parent_};
};

/// More operations than saving a row takes.
constexpr std::int64_t kPlaces = 60;

TEST_F(ShownAfterFaultTest, AnAccountThatCouldNotBeSavedIsNotInTheTree)
{
    for (std::int64_t at = 1; at < kPlaces; ++at) {
        const TempFolder folder(parent_);
        Unpack(*FirstMoment(2), {}, folder.Path());
        InProcessProgram program(folder.Path(), quotes_.Address());
        Fill(program, {"Savings", "Bank", "S-1"});
        if (!FailToSave(program, at))
            break;
        // The storage reports an error then, but what was written may stay.
        if (files_.FirstFailure() == "delete journal")
            continue;
        bool shown = false;
        const Json tree = program.Ask({{"do", "tree"}});
        for (const Json& node : tree["nodes"])
            shown = shown || node["text"] == "Savings";
        EXPECT_FALSE(shown) << at << files_.FirstFailure();
    }
}

TEST_F(ShownAfterFaultTest, ATransactionThatCouldNotBeSavedIsNotShownAsAStoredRow)
{
    for (std::int64_t at = 1; at < kPlaces; ++at) {
        const TempFolder folder(parent_);
        Unpack(*FirstMoment(2), {}, folder.Path());
        InProcessProgram program(folder.Path(), quotes_.Address());
        program.Ask({{"do", "click"}, {"text", "Wallet"}});
        const std::size_t rows = program.Ask({{"do", "grid"}})["rows"].size();
        const Json totals = program.Ask({{"do", "window"}})["totals"];
        program.Ask({{"do", "edit"}, {"row", "new"}, {"col", 3}, {"text", "-7.77"}});
        if (!FailToSave(program, at))
            break;
        // The storage reports an error then, but what was written may stay.
        if (files_.FirstFailure() == "delete journal")
            continue;
        const Json grid = program.Ask({{"do", "grid"}});
        std::size_t stored = 0;
        for (const Json& row : grid["rows"])
            stored += row["kind"] == "data" ? 1U : 0U;
        EXPECT_EQ(stored, rows - 1) << at << files_.FirstFailure();
        EXPECT_EQ(program.Ask({{"do", "window"}})["totals"], totals);
    }
}

}  // namespace
}  // namespace clb
