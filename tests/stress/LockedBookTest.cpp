// Another program holds the book: commands wait for it, and report if it takes too long.

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "tests/stress/TwoPrograms.h"

namespace clb {
namespace {

constexpr const char* kLocked = "is locked by another program.";

/// Holds the write lock of the book until it is released, or for a time.
class Holder {
public:
    explicit Holder(const std::string& folder) : book_(folder) { book_.Run("BEGIN IMMEDIATE"); }
    ~Holder()
    {
        if (thread_.joinable())
            thread_.join();
        Release();
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    void ReleaseAfter(std::chrono::milliseconds time)
    {
        thread_ = std::thread([this, time] {
            std::this_thread::sleep_for(time);
            Release();
        });
    }
    void Release()
    {
        if (!released_.exchange(true))
            book_.Run("ROLLBACK");
    }
    [[nodiscard]] bool Released() const { return released_; }

private:
    RawBook book_;
    std::atomic<bool> released_ = false;
    std::thread thread_;
};

class LockedBookTest : public TwoPrograms {
protected:
    std::unique_ptr<ClbProcess> Start(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin() + 1, {"--home", folder.Path()});
        return std::make_unique<ClbProcess>(arguments);
    }
};

constexpr std::chrono::milliseconds kSoon{1000};

TEST_F(LockedBookTest, ACommandWaitsForAProgramThatIsSoonDone)
{
    Grid();
    Edit(1, 3, "-35");
    Holder holder(folder.Path());
    holder.ReleaseAfter(kSoon);

    EXPECT_TRUE(Save());

    EXPECT_TRUE(holder.Released());
    EXPECT_EQ(Stored(), "1:-10 2:-20 3:-35");
    EXPECT_TRUE(EventsOf("box").empty());
}

TEST_F(LockedBookTest, CommandsOfTheCommandLineWaitAsWell)
{
    Holder holder(folder.Path());
    const auto import = Start({"import", "--json", Statement("march.ofx", "F1")});
    const auto split = Start({"split", "3", "--", "-4"});
    const auto move = Start({"move", "--by", "-1", "2"});
    holder.ReleaseAfter(kSoon);

    EXPECT_EQ(import->Wait(), 0) << import->Story();
    EXPECT_EQ(split->Wait(), 0) << split->Story();
    EXPECT_EQ(move->Wait(), 0) << move->Story();

    EXPECT_EQ(Stored(), "1:-10 2:-20 3:-26 3:-4 4:-7");
    EXPECT_EQ(RawBook(folder.Path()).Faults(), std::vector<std::string>());
}

TEST_F(LockedBookTest, ACommandThatWaitedTooLongSaysSoAndChangesNothing)
{
    Grid();
    Edit(1, 3, "-35");
    Events();
    const auto holder = std::make_unique<Holder>(folder.Path());
    const auto import = Start({"import", "--json", Statement("march.ofx", "F1")});
    const auto split = Start({"split", "3", "--", "-4"});
    const auto move = Start({"move", "--by", "-1", "2"});

    const Json reply = Try({{"do", "save"}});

    std::string answers = ToLine(reply);
    for (const Json& box : EventsOf("box"))
        answers += ToLine(box);
    EXPECT_THAT(answers, testing::HasSubstr(kLocked));
    for (const auto* process : {&import, &split, &move}) {
        EXPECT_EQ((*process)->Wait(), 1) << (*process)->Story();
        EXPECT_THAT((*process)->Err(), testing::HasSubstr(kLocked));
    }
    EXPECT_EQ(Stored(), "1:-10 2:-20 3:-30");

    holder->Release();
    EXPECT_TRUE(Dirty());
    EXPECT_TRUE(Save());
    Other({"import", Statement("march.ofx", "F1")});
    EXPECT_EQ(Stored(), "1:-10 2:-20 3:-35 4:-7");
    EXPECT_EQ(StoredBalance(), "-72");
}

TEST_F(LockedBookTest, ALockedBookCanBeRead)
{
    const Holder holder(folder.Path());

    Click("Savings");
    Click("Checking");

    EXPECT_EQ(Column(11), "3 2 1");
    Other({"register", "Checking", "--month", "2006-03"});
}

}  // namespace
}  // namespace clb
