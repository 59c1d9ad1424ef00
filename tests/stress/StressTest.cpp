// Several programs change one book at once: nothing is lost, doubled or misplaced.
// CLB_STRESS_ROUNDS sets the number of rounds, CLB_STRESS_SEED what they do. CLB_STRESS_FAILURES is
// the number of failures after which the test stops. CLB_STRESS_IN_TURN=1 runs the programs one
// after the other: a round that still fails then does not fail because of other programs.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "tests/stress/StressRound.h"

namespace clb {
namespace {

#ifdef CLB_SANITIZED
constexpr int kRounds = 25;
#else
constexpr int kRounds = 200;
#endif
/// Rounds on one copy of the grown book, with one session.
constexpr int kRoundsOfBook = 20;
constexpr int kMostFailures = 3;

int Environment(const char* name, int otherwise)
{
    const char* const text = std::getenv(name);
    return text ? std::atoi(text) : otherwise;
}

class StressTest : public testing::Test {
protected:
    StressTest() { MakeStressBook(folder_, "grown"); }

    void OpenCopy()
    {
        session_.reset();
        std::filesystem::remove_all(folder_.Path("book"));
        std::filesystem::copy(folder_.Path("grown"), folder_.Path("book"),
                              std::filesystem::copy_options::recursive);
        const auto pause = [this] {
            const int microseconds = std::uniform_int_distribution<int>(0, 15000)(random_);
            std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
        };
        session_.emplace(folder_.Path("book"), pause);
    }

    /// Returns whether the book and all reports fit together.
    bool Round(int number)
    {
        random_.seed(static_cast<unsigned>(seed_ * 1000 + number));
        StressRound round(folder_, folder_.Path("book"), *session_, "R" + std::to_string(number),
                          random_);
        round.InTurn(Environment("CLB_STRESS_IN_TURN", 0) != 0);
        round.Run();
        overloaded_ += round.Overloaded() ? 1 : 0;
        EXPECT_TRUE(round.Faults().empty())
            << round.Faults() << "Round " << number << " of CLB_STRESS_SEED=" << seed_ << "\n"
            << round.Story();
        return round.Faults().empty() && !round.Overloaded();
    }

    TempFolder folder_;
    int seed_ = Environment("CLB_STRESS_SEED", 1);
    std::mt19937 random_;
    std::optional<Session> session_;
    int overloaded_ = 0;
};

TEST_F(StressTest, SeveralProgramsOnOneBookLoseAndDoubleNothing)
{
    const int rounds = Environment("CLB_STRESS_ROUNDS", kRounds);
    const int mostFailures = Environment("CLB_STRESS_FAILURES", kMostFailures);
    const auto from = std::chrono::steady_clock::now();
    int failures = 0;
    int round = 0;
    int onBook = 0;
    while (round < rounds && failures < mostFailures) {
        if (onBook == 0)
            OpenCopy();
        const bool good = Round(++round);
        failures += good ? 0 : 1;
        onBook = good ? (onBook + 1) % kRoundsOfBook : 0;
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - from;
    std::printf("%d rounds, %d failed, %d on a machine that was too busy: %.1f s\n", round,
                failures - overloaded_, overloaded_, took.count());
    EXPECT_LT(overloaded_, mostFailures) << "The machine is too busy for this test.";
}

}  // namespace
}  // namespace clb
