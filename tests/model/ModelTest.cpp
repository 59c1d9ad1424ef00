// Random sequences of user actions on the whole program without its window, compared with a simple
// model in memory. After each action the shown view and every row of every table are compared.
// Every ten actions, and at the end of each run, all views of the month are compared too (Replay.h
// says why not after each action).
//
// A long run:  CLB_MODEL_ACTIONS=200000 CLB_MODEL_SEED=1 clb_test_model
// CLB_MODEL_RUN is the number of actions from one start to the next.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <numeric>

#include "tests/model/Replay.h"
#include "tests/model/Shrink.h"

namespace clb::model {
namespace {

constexpr std::size_t kActionsOfARun = 250;
constexpr std::size_t kActionsOfAFlawedRun = 80;

std::uint64_t Setting(const char* name, std::uint64_t otherwise)
{
    const char* text = std::getenv(name);
    return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

std::size_t Actions(const Tally& tally)
{
    std::size_t all = 0;
    for (const Tally::Deeds& deeds : tally.deeds)
        all += deeds.done;
    return all;
}

void Print(const Tally& tally, std::uint64_t firstSeed, std::uint64_t seeds, double seconds)
{
    std::cout << Actions(tally) << " actions, after each the shown view and all tables compared; "
              << tally.walks << " walks through all views; " << tally.comparisons
              << " views compared; seeds " << firstSeed << " to " << firstSeed + seeds - 1 << "; "
              << seconds << " s\n";
    for (std::size_t deed = 0; deed < tally.deeds.size(); ++deed)
        std::cout << "  " << NameOf(static_cast<Deed>(deed)) << ": " << tally.deeds[deed].done
                  << ", changed something " << tally.deeds[deed].telling << "\n";
}

TEST(ModelTest, TheProgramShowsAndStoresWhatTheModelDoes)
{
    const auto begin = std::chrono::steady_clock::now();
    const std::uint64_t firstSeed = Setting("CLB_MODEL_SEED", 1);
    const std::uint64_t wanted = Setting("CLB_MODEL_ACTIONS", 3000);
    const std::uint64_t each = Setting("CLB_MODEL_RUN", kActionsOfARun);
    Tally tally;
    std::uint64_t seeds = 0;
    for (; Actions(tally) < wanted; ++seeds) {
        const auto found = RunSeed(firstSeed + seeds, each, Flaw::None, &tally);
        ASSERT_FALSE(found.has_value()) << *found;
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    if (std::getenv("CLB_MODEL_ACTIONS"))
        Print(tally, firstSeed, seeds, took.count());
}

/// The first report of runs against a model with the flaw; empty if no run noticed it.
std::string ReportOf(Flaw flaw)
{
    for (std::uint64_t seed = 1; seed <= 40; ++seed)
        if (const auto found = RunSeed(seed, kActionsOfAFlawedRun, flaw))
            return *found;
    return "";
}

std::size_t LengthOf(const std::string& report)
{
    const std::string words = "shrunk to ";
    const std::size_t at = report.find(words);
    return at == std::string::npos ? 0 : std::stoul(report.substr(at + words.size()));
}

class FlawTest : public testing::TestWithParam<Flaw> {};

TEST_P(FlawTest, AWrongModelIsNoticedAndTheSequenceShrunk)
{
    const std::string report = ReportOf(GetParam());

    EXPECT_GT(LengthOf(report), 0U) << report;
    EXPECT_LE(LengthOf(report), 6U) << report;
}

INSTANTIATE_TEST_SUITE_P(All, FlawTest,
                         testing::Values(Flaw::ForgetsBudgetLine, Flaw::RowsStayWithOldNumber,
                                         Flaw::SplitKeepsWholeAmount, Flaw::OnlyShownLoans,
                                         Flaw::UndoKeepsBudget));

TEST(ShrinkTest, WhatFailsTogetherIsLeftAlone)
{
    std::vector<int> items(100);
    std::iota(items.begin(), items.end(), 0);

    const auto fails = [](const std::vector<int>& some) {
        const auto has = [&some](int item) {
            return std::find(some.begin(), some.end(), item) != some.end();
        };
        return has(17) && has(18) && has(83);
    };

    EXPECT_EQ(Shrink(items, fails), (std::vector<int>{17, 18, 83}));
}

}  // namespace
}  // namespace clb::model
