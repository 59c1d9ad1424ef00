#include "platform/RunningProgram.h"

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <future>

#include "tests/support/TempFolder.h"

namespace clb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RunningProgramTest : public testing::Test {
protected:
    RunningProgramTest()
    {
        const char* before = std::getenv("XDG_RUNTIME_DIR");
        before_ = before ? before : "";
        setenv("XDG_RUNTIME_DIR", runtime_.Path().c_str(), 1);
    }
    ~RunningProgramTest() override
    {
        if (before_.empty())
            unsetenv("XDG_RUNTIME_DIR");
        else
            setenv("XDG_RUNTIME_DIR", before_.c_str(), 1);
    }
    /// Hands over while the first start looks for requests.
    static std::vector<StartRequest> Meet(RunningProgram& first, const RunningProgram& second,
                                          const StartRequest& request)
    {
        auto handed = std::async(std::launch::async, [&] { return second.HandOver(request); });
        std::vector<StartRequest> requests;
        while (handed.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
            for (StartRequest& one : first.Requests())
                requests.push_back(std::move(one));
        EXPECT_TRUE(handed.get());
        return requests;
    }
    static sockaddr_un AddressOf(const std::string& path)
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        return address;
    }
    /// What stands in the meeting place besides locks.
    std::vector<std::string> Sockets() const
    {
        std::vector<std::string> paths;
        for (const auto& entry :
             std::filesystem::directory_iterator(runtime_.Path() + "/corvane-ledgerbook"))
            if (entry.is_socket())
                paths.push_back(entry.path().string());
        return paths;
    }

    TempFolder runtime_;
    TempFolder home_;
    TempFolder other_;

private:
    std::string before_;
};

TEST_F(RunningProgramTest, ASecondStartHandsItsFilesToTheFirst)
{
    RunningProgram first(home_.Path());
    RunningProgram second(home_.Path() + "/.");
    ASSERT_TRUE(first.BecomeFirst());
    ASSERT_FALSE(second.BecomeFirst());

    const auto requests = Meet(first, second, {{"/home/ada/a b.ofx", "/tmp/ü.qif"}, "token"});

    ASSERT_EQ(requests.size(), 1U);
    EXPECT_THAT(requests[0].files, ElementsAre("/home/ada/a b.ofx", "/tmp/ü.qif"));
    EXPECT_EQ(requests[0].activation, "token");
}

TEST_F(RunningProgramTest, ASecondStartWithoutFilesIsARequestToo)
{
    RunningProgram first(home_.Path());
    RunningProgram second(home_.Path());
    first.BecomeFirst();
    second.BecomeFirst();

    const auto requests = Meet(first, second, {});

    ASSERT_EQ(requests.size(), 1U);
    EXPECT_THAT(requests[0].files, IsEmpty());
}

TEST_F(RunningProgramTest, StartsOverOtherFoldersDoNotMeet)
{
    RunningProgram first(home_.Path());
    RunningProgram second(other_.Path());

    EXPECT_TRUE(first.BecomeFirst());
    EXPECT_TRUE(second.BecomeFirst());
}

TEST_F(RunningProgramTest, TheNextStartIsFirstOnceTheFirstHasEnded)
{
    {
        RunningProgram first(home_.Path());
        first.BecomeFirst();
    }
    RunningProgram next(home_.Path());

    EXPECT_TRUE(next.BecomeFirst());
    EXPECT_GE(next.Descriptor(), 0);
}

TEST_F(RunningProgramTest, ASocketThatAKilledProgramLeftIsNoFirstStart)
{
    std::string path;
    {
        RunningProgram first(home_.Path());
        first.BecomeFirst();
        ASSERT_EQ(Sockets().size(), 1U);
        path = Sockets()[0];
    }
    const sockaddr_un address = AddressOf(path);
    const int dead = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(dead, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(dead);
    RunningProgram next(home_.Path());
    RunningProgram later(home_.Path());

    ASSERT_TRUE(next.BecomeFirst());
    EXPECT_FALSE(later.BecomeFirst());
    EXPECT_EQ(Meet(next, later, {}).size(), 1U);
}

TEST_F(RunningProgramTest, WhatIsNoRequestIsPassedOver)
{
    RunningProgram first(home_.Path());
    first.BecomeFirst();
    ASSERT_EQ(Sockets().size(), 1U);
    const sockaddr_un address = AddressOf(Sockets()[0]);
    for (const std::string& bytes :
         {std::string("GET / HTTP/1.1\r\n"), std::string(), std::string("ledgerbook 1\0", 13)}) {
        const int stranger = socket(AF_UNIX, SOCK_STREAM, 0);
        ASSERT_EQ(connect(stranger, reinterpret_cast<const sockaddr*>(&address), sizeof address),
                  0);
        ASSERT_EQ(write(stranger, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        close(stranger);
    }

    EXPECT_THAT(first.Requests(), IsEmpty());
}

TEST_F(RunningProgramTest, AMeetingPlaceOpenToOthersIsNotUsed)
{
    std::filesystem::create_directories(runtime_.Path() + "/corvane-ledgerbook");
    std::filesystem::permissions(runtime_.Path() + "/corvane-ledgerbook",
                                 std::filesystem::perms::all);
    RunningProgram first(home_.Path());
    RunningProgram second(home_.Path());

    EXPECT_TRUE(first.BecomeFirst());
    EXPECT_TRUE(second.BecomeFirst());
    EXPECT_EQ(first.Descriptor(), -1);
}

}  // namespace
}  // namespace clb
