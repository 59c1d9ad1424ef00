// Several programs change one book at once, and undo and redo what any of them has done. All steps
// lie in one order, and what was reported as undone or redone is so.
// CLB_STRESS_ROUNDS sets the number of rounds, CLB_STRESS_SEED what they do.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>
#include <set>
#include <thread>

#include "tests/stress/ClbProcess.h"
#include "tests/stress/RawBook.h"
#include "tests/stress/Session.h"
#include "tests/stress/StressBook.h"
#include "tests/support/BackAndForth.h"

namespace clb {
namespace {

int Environment(const char* name, int otherwise)
{
    const char* const text = std::getenv(name);
    return text ? std::atoi(text) : otherwise;
}

class HistoryStressTest : public testing::Test {
protected:
    HistoryStressTest()
    {
        MakeStressBook(folder_, "book");
        // The history begins here, so that the accounts stay.
        for (const char* table : {"CvChange", "CvStep"})
            RawBook(Book()).Run("DELETE FROM " + std::string(table));
        start_ = WithoutHistory(DumpOf(Book() + "/db/clb.mdb"));
        session_ = std::make_unique<Session>(Book(), [this] { Pause(); });
    }

    [[nodiscard]] std::string Book() const { return folder_.Path("book"); }
    int Random(int least, int most)
    {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }
    void Pause() { std::this_thread::sleep_for(std::chrono::microseconds(Random(0, 15000))); }

    void Round(int number)
    {
        processes_.clear();
        account_ = kStressAccounts[Random(0, 1)];
        month_ = {2006, Random(1, 3)};
        session_->Show(account_.name, month_);
        sessionUndoes_ = number % 2 == 0;
        for (int count = Random(4, 6); count > 0; --count)
            Start(number);
        for (int count = Random(3, 5); count > 0; --count)
            UseSession(number);
        for (const auto& process : processes_)
            Hear(*process);
        story_ += session_->TakeStory();
    }
    void Start(int number)
    {
        const std::string steps = std::to_string(Random(1, 3));
        const std::string row = std::to_string(AnyNumber());
        const std::string file =
            "r" + std::to_string(number) + "-" + std::to_string(processes_.size());
        switch (Random(1, 8)) {
            case 1:
            case 2:
            case 3: return Run({"undo", "--home", Book(), "--json", "--steps", steps});
            case 4:
            case 5: return Run({"redo", "--home", Book(), "--json", "--steps", steps});
            case 6: return Run({"move", "--home", Book(), "--by", "+1", "--", row});
            case 7: return Run({"split", "--home", Book(), "--", row, "1.5"});
            default: {
                std::vector<StressRow> rows;
                for (int n = Random(1, 8); n > 0; --n)
                    rows.push_back(
                        {file + "-" + std::to_string(n), "20060210", std::int64_t{n} * 100});
                return Run({"import", "--home", Book(),
                            folder_.Write(file + ".ofx", StatementText(account_.number, rows))});
            }
        }
    }
    void Run(const std::vector<std::string>& words)
    {
        processes_.push_back(std::make_unique<ClbProcess>(words));
        if (Random(0, 1) == 0)
            Pause();
    }
    void UseSession(int number)
    {
        const int row = AnyNumber();
        const int amount = Random(-500, 500) * 100;
        switch (Random(1, sessionUndoes_ ? 8 : 5)) {
            case 1: return session_->Edit(row, 0, Cell::Amount, std::to_string(amount));
            case 2: return session_->Move(row, 0, 1);
            case 3: return session_->Delete(row, 0);
            case 4: return session_->Edit(row, 0, Cell::Category, "C" + std::to_string(number));
            case 5: return session_->Add("Entered " + std::to_string(number), amount);
            case 6: return session_->TakeStep(false);
            default: return session_->TakeStep(true);
        }
    }
    /// A transaction of the shown register, mostly.
    int AnyNumber()
    {
        const std::vector<std::string> numbers = RawBook(Book()).Rows(
            "SELECT Sequence FROM Trans WHERE AccountID = '" + std::string(account_.number) +
            "' AND Period = " + std::to_string(month_.period));
        if (numbers.empty())
            return 1;
        return std::stoi(
            numbers[static_cast<std::size_t>(Random(0, static_cast<int>(numbers.size()) - 1))]);
    }

    /// Counts what was reported as undone and redone. A refused step is an error: every program
    /// sees the newest step, whose rows nobody has changed since.
    void Hear(ClbProcess& process)
    {
        process.Wait();
        story_ += process.Story();
        EXPECT_EQ(process.Err().find("cannot be"), std::string::npos) << process.Story();
        locked_ = locked_ || process.Err().find("is locked by") != std::string::npos;
        const Json report = Json::parse(process.Out(), nullptr, false);
        if (!report.is_object())
            return;
        for (const auto& [key, change] : {std::pair{"undone", 1}, std::pair{"redone", -1}})
            if (report.contains(key) && report[key].is_array())
                for (const Json& step : report[key])
                    undone_[step["step"].get<int>()] += change;
    }

    void CompareSteps()
    {
        std::set<int> done;
        int last = 0;
        bool before = true;  // no undone step has come yet
        for (const std::string& row :
             RawBook(Book()).Rows("SELECT Step, Undone FROM CvStep ORDER BY rowid")) {
            const int step = std::stoi(row);
            const bool undone = row.back() == '1';
            EXPECT_GT(step, last);
            EXPECT_TRUE(before || undone) << "step " << step << " follows an undone one";
            last = step;
            before = !undone;
            if (!undone)
                done.insert(step);
        }
        if (sessionEverUndid_)
            return;
        for (int step = 1; step <= last; ++step)
            EXPECT_EQ(undone_[step], done.contains(step) ? 0 : 1) << "reports of step " << step;
    }
    void CompareBook()
    {
        EXPECT_EQ(RawBook(Book()).Faults(), std::vector<std::string>());
        const std::string copy = folder_.Path("copy.mdb");
        std::filesystem::copy_file(Book() + "/db/clb.mdb", copy,
                                   std::filesystem::copy_options::overwrite_existing);
        const WayBack back = GoBackAndForth(copy, start_);
        EXPECT_EQ(back.past, Past::Whole) << back.why;
    }
    void CompareShown()
    {
        session_->Show(account_.name, month_);
        std::multiset<std::string> stored;
        for (const auto& [number, pieces] : RawBook(Book()).Transactions())
            for (const auto& [piece, row] : pieces)
                if (row.account == account_.number && row.month == month_)
                    stored.insert(std::to_string(number) + "/" + std::to_string(piece) + ": " +
                                  AmountText(row.amount));
        const std::vector<std::string> shown = session_->ShownRows();
        EXPECT_EQ(std::multiset<std::string>(shown.begin(), shown.end()), stored);
    }

    TempFolder folder_;
    TableDump start_;
    int seed_ = Environment("CLB_STRESS_SEED", 1);
    std::mt19937 random_{static_cast<unsigned>(seed_)};
    std::unique_ptr<Session> session_;
    std::vector<std::unique_ptr<ClbProcess>> processes_;
    StressAccount account_ = kStressAccounts[0];
    Month month_;
    bool sessionUndoes_ = false;
    bool sessionEverUndid_ = false;
    bool locked_ = false;
    std::map<int, int> undone_;  // by number: how often a step was undone less how often redone
    std::string story_;
};

TEST_F(HistoryStressTest, TheStepsOfAllProgramsAreInOneOrder)
{
    const int rounds = Environment("CLB_STRESS_ROUNDS", 24);
    for (int round = 1; round <= rounds && !HasFailure() && !locked_; ++round) {
        story_.clear();
        // In the first half only clb undoes, and each of its reports is counted.
        const bool second = round > rounds / 2;
        Round(second ? round * 2 : round * 2 + 1);
        sessionEverUndid_ = sessionEverUndid_ || second;
        CompareSteps();
        CompareBook();
        CompareShown();
        EXPECT_FALSE(HasFailure()) << "round " << round << " of CLB_STRESS_SEED=" << seed_ << "\n"
                                   << story_;
    }
}

}  // namespace
}  // namespace clb
