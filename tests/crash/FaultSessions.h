// A fixture that runs sessions of the program on a failing file system.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/crash/FaultyFiles.h"
#include "tests/crash/InProcessProgram.h"
#include "tests/crash/OutcomeCounts.h"
#include "tests/crash/Undisturbed.h"
#include "tests/support/TempFolder.h"

namespace clb {

/// An undisturbed sitting and the number of its file operations.
struct CountedSitting {
    RecordedSitting record;
    std::int64_t operations = 0;
    std::string startKind;  ///< "start", or "upgrade 0" if the file is an old one
};

/// Runs the program in this process on a file system that fails.
class FaultSessions : public testing::Test {
protected:
    /// The next sitting: in the file that the last one left, in a fresh one, or in one of an older
    /// schema.
    CountedSitting NextSitting()
    {
        CountedSitting sitting = AnySitting();
        while (sitting.operations == 0)
            sitting = AnySitting();
        return sitting;
    }
    CountedSitting AnySitting()
    {
        const int version = random_() % 5 == 0 ? static_cast<int>(random_() % 2) : 2;
        if (version < 2)
            return Counted(script_.NextSitting(), FirstMoment(version),
                           "upgrade " + std::to_string(version));
        if (!moment_ || random_() % 10 == 0)
            moment_ = FirstMoment(2);
        CountedSitting sitting = Counted(script_.NextSitting(), moment_, "start");
        moment_ = sitting.record.Last();
        return sitting;
    }
    CountedSitting Counted(const Sitting& sitting, const MomentPtr& before, const std::string& kind)
    {
        files_.Begin({});
        CountedSitting counted{RecordUndisturbed(sitting, before, start_, quotes_, parent_), 0,
                               kind};
        counted.operations = files_.Operations();
        return counted;
    }
    /// A random operation of the sitting. In old files half of them are in the start, so that the
    /// upgrade is hit.
    std::int64_t SomeOperation(const CountedSitting& sitting)
    {
        std::int64_t limit = sitting.operations + 1;
        if (sitting.startKind != "start" && random_() % 2 == 0)
            limit = std::min<std::int64_t>(limit, 40);
        return 1 + static_cast<std::int64_t>(random_() % static_cast<std::uint64_t>(limit));
    }
    Json AskIn(DrivenProgram& program, const RecordedRequest& request, const std::string& folder)
    {
        quotes_.Price(request.price);
        return program.Ask(InFolder(request.request, folder));
    }

    std::uint32_t seed_ = static_cast<std::uint32_t>(Runs("CLB_CRASH_SEED", 1));
    std::mt19937 random_{seed_};
    SessionScript script_{seed_};
    OnePrice quotes_;
    FaultyFiles files_;
    std::string parent_ = TempFolder::Memory().string();
    Starter start_ = [this](const std::string& folder) {
        return std::make_unique<InProcessProgram>(folder, quotes_.Address());
    };
    MomentPtr moment_;
};

}  // namespace clb
