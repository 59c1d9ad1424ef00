#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <QTest>
#include <csignal>
#include <filesystem>
#include <future>

#include "base/RuntimeError.h"
#include "desktop/look/TextConvert.h"
#include "desktop/start/RunningProgram.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

class RunningProgramTest : public testing::Test {
protected:
    RunningProgramTest()
    {
        for (const TempFolder* folder : {&home_, &other_})
            std::filesystem::create_directories(folder->Path("db"));
    }
    /// Starts once more, as another process would, while the first one's event loop runs.
    bool StartAgain(const StartRequest& request = {})
    {
        auto later = std::async(std::launch::async,
                                [&] { return RunningProgram(home_.Path()).BecomeFirst(request); });
        while (later.wait_for(milliseconds(0)) != std::future_status::ready)
            QTest::qWait(1);
        return later.get();
    }
    /// The message of a start that gets no answer.
    std::string Refusal(milliseconds patience = milliseconds(200))
    {
        try {
            RunningProgram(home_.Path(), patience).BecomeFirst({});
        } catch (const RuntimeError& error) {
            return error.what();
        }
        return "";
    }
    /// A program that has the book open and does not answer. `user` is whose program it is, if
    /// given.
    pid_t OpenElsewhere(uid_t user = geteuid())
    {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            if (user != geteuid() && setuid(user) != 0)
                _exit(1);
            RunningProgram first(home_.Path());
            const char answer = first.BecomeFirst({}) ? '1' : '0';
            if (write(ready[1], &answer, 1) == 1)
                pause();
            _exit(0);
        }
        char answer = 0;
        EXPECT_EQ(read(ready[0], &answer, 1), 1);
        EXPECT_EQ(answer, '1');
        close(ready[0]);
        close(ready[1]);
        return child;
    }
    static void Kill(pid_t child)
    {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    [[nodiscard]] std::string LockFile() const { return home_.Path("db/clb.lock"); }

    TempFolder home_;
    TempFolder other_;
};

TEST_F(RunningProgramTest, ASecondStartHandsItsFilesToTheFirst)
{
    std::vector<StartRequest> taken;
    RunningProgram first(home_.Path());
    ASSERT_TRUE(first.BecomeFirst({}));
    first.Serve([&](const StartRequest& request) { taken.push_back(request); });

    EXPECT_FALSE(StartAgain({{"/home/ada/a b.ofx", QStringLiteral("/tmp/ü\n.qif")}, "token"}));

    ASSERT_EQ(taken.size(), 1U);
    EXPECT_THAT(taken[0].files, ElementsAre("/home/ada/a b.ofx", QStringLiteral("/tmp/ü\n.qif")));
    EXPECT_EQ(taken[0].activation, "token");
}

TEST_F(RunningProgramTest, ASecondStartWithoutFilesIsARequestToo)
{
    std::vector<StartRequest> taken;
    RunningProgram first(home_.Path());
    first.BecomeFirst({});
    first.Serve([&](const StartRequest& request) { taken.push_back(request); });

    EXPECT_FALSE(StartAgain());

    ASSERT_EQ(taken.size(), 1U);
    EXPECT_THAT(taken[0].files, IsEmpty());
}

TEST_F(RunningProgramTest, RequestsWaitUntilTheWindowIsThere)
{
    std::vector<StartRequest> taken;
    RunningProgram first(home_.Path());
    first.BecomeFirst({});

    EXPECT_FALSE(StartAgain({{"/a.ofx"}, ""}));
    EXPECT_FALSE(StartAgain({{"/b.ofx"}, ""}));
    first.Serve([&](const StartRequest& request) { taken.push_back(request); });

    ASSERT_EQ(taken.size(), 2U);
    EXPECT_THAT(taken[0].files, ElementsAre("/a.ofx"));
    EXPECT_THAT(taken[1].files, ElementsAre("/b.ofx"));
}

TEST_F(RunningProgramTest, TheSameFolderByAnotherNameIsTheSameBook)
{
    std::filesystem::create_directory_symlink(home_.Path(), other_.Path("link"));
    RunningProgram first(other_.Path("link"));
    ASSERT_TRUE(first.BecomeFirst({}));

    EXPECT_FALSE(StartAgain());
}

TEST_F(RunningProgramTest, StartsOverOtherFoldersDoNotMeet)
{
    RunningProgram first(home_.Path());
    RunningProgram second(other_.Path());

    EXPECT_TRUE(first.BecomeFirst({}));
    EXPECT_TRUE(second.BecomeFirst({}));
}

TEST_F(RunningProgramTest, TheNextStartIsFirstAfterTheFirstHasEnded)
{
    {
        RunningProgram first(home_.Path());
        first.BecomeFirst({});
        EXPECT_TRUE(QFile::exists(ToQString(LockFile())));
    }
    EXPECT_FALSE(QFile::exists(ToQString(LockFile())));

    EXPECT_TRUE(RunningProgram(home_.Path()).BecomeFirst({}));
}

TEST_F(RunningProgramTest, AfterACrashTheNextStartIsFirstAtOnce)
{
    Kill(OpenElsewhere());
    ASSERT_TRUE(QFile::exists(ToQString(LockFile())));
    QElapsedTimer time;
    time.start();
    RunningProgram next(home_.Path());

    EXPECT_TRUE(next.BecomeFirst({}));

    EXPECT_LT(time.elapsed(), 1000);
    EXPECT_FALSE(StartAgain());
}

TEST_F(RunningProgramTest, ALockThatAPowerCutLeftEmptyDoesNotCount)
{
    home_.Write("db/clb.lock", "");

    EXPECT_TRUE(RunningProgram(home_.Path()).BecomeFirst({}));
}

/// Another program may now have the number of the crashed one.
TEST_F(RunningProgramTest, ALockWhoseNumberAnotherProgramHasDoesNotCount)
{
    const QByteArray here = QSysInfo::machineHostName().toUtf8();
    const std::string self = std::filesystem::read_symlink("/proc/self/exe").filename();
    home_.Write("db/clb.lock",
                std::to_string(getpid()) + "\n" + self + "\n" + here.toStdString() + "\n");

    EXPECT_TRUE(RunningProgram(home_.Path()).BecomeFirst({}));
}

/// Symptom: a second window opened on the same book.
TEST_F(RunningProgramTest, AFirstStartThatDoesNotAnswerIsReported)
{
    const pid_t first = OpenElsewhere();

    EXPECT_EQ(Refusal(), "The book in " + home_.Path() +
                             " is open in a window that does not answer. Wait until it is done, or "
                             "end that program, then start again.");

    Kill(first);
    EXPECT_TRUE(RunningProgram(home_.Path()).BecomeFirst({}));
}

/// Symptom: the socket was in that folder, and without it each start opened a window.
TEST_F(RunningProgramTest, NoFolderOfTheSessionIsNeeded)
{
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", "/nowhere");
    RunningProgram first(home_.Path());
    ASSERT_TRUE(first.BecomeFirst({}));
    qunsetenv("XDG_RUNTIME_DIR");

    EXPECT_FALSE(StartAgain());

    if (!before.isNull())
        qputenv("XDG_RUNTIME_DIR", before);
}

TEST_F(RunningProgramTest, ABookThatAnotherComputerHasOpenIsReported)
{
    home_.Write("db/clb.lock", "123\nledgerbook\nanvil\n");

    EXPECT_EQ(Refusal(), "The book in " + home_.Path() +
                             " is open on the computer anvil. Close it there first. If no program "
                             "has it open there, delete " +
                             LockFile() + ".");
    EXPECT_TRUE(QFile::exists(ToQString(LockFile())));
}

TEST_F(RunningProgramTest, ABookThatAnotherUserHasOpenIsReported)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root may become another user";
    constexpr uid_t kDaemon = 1;
    std::filesystem::permissions(home_.Path(), std::filesystem::perms::all);
    std::filesystem::permissions(home_.Path("db"), std::filesystem::perms::all);
    const pid_t first = OpenElsewhere(kDaemon);

    EXPECT_EQ(Refusal(), "The book in " + home_.Path() +
                             " is open in a window of the user daemon. Close that window first.");

    Kill(first);
    EXPECT_TRUE(RunningProgram(home_.Path()).BecomeFirst({}));
}

TEST_F(RunningProgramTest, AnyUserOfTheBookCanRemoveTheLockOfACrash)
{
    RunningProgram first(home_.Path());
    first.BecomeFirst({});

    struct stat found {};
    ASSERT_EQ(stat(LockFile().c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0666U);
}

TEST_F(RunningProgramTest, WithoutAPlaceForTheLockAStartIsFirstUnlessAnotherAnswers)
{
    std::filesystem::remove_all(home_.Path("db"));
    RunningProgram first(home_.Path());

    EXPECT_TRUE(first.BecomeFirst({}));
    EXPECT_FALSE(StartAgain());
}

}  // namespace
}  // namespace clb
