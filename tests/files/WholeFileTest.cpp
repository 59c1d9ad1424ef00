#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <thread>

#include "files/FileError.h"
#include "files/ReadFile.h"
#include "files/WholeFile.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/SmallDisk.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

const std::string kBig(2'000'000, 'b');

unsigned ModeOf(const std::string& path)
{
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

std::size_t CountOf(const std::string& folder)
{
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

std::string ErrorOf(const std::function<void()>& action, std::int32_t number)
{
    try {
        action();
    } catch (const FileError& error) {
        EXPECT_EQ(error.Number(), number);
        return error.what();
    }
    ADD_FAILURE() << "nothing was refused";
    return "";
}

class WholeFileTest : public testing::Test {
protected:
    TempFolder folder;
};

TEST_F(WholeFileTest, ANewFileIsForTheUserAloneAndHasItsNameOnlyWhenItIsWhole)
{
    const std::string path = folder.Path("new.ofx");
    WholeFile file(path);
    file.Write("one ");
    file.Write("two");
    EXPECT_FALSE(fs::exists(path));
    EXPECT_EQ(ReadFile(file.Path()), "one two");

    file.Keep();

    EXPECT_EQ(ReadFile(path), "one two");
    EXPECT_EQ(ModeOf(path), 0600U);
    EXPECT_EQ(CountOf(folder.Path()), 1U);
}

TEST_F(WholeFileTest, AFileThatIsGivenUpLeavesTheFormerOneAndNothingElse)
{
    const std::string path = folder.Write("kept.ofx", "former");
    {
        WholeFile file(path);
        file.Write("half of the n");
    }

    EXPECT_EQ(ReadFile(path), "former");
    EXPECT_EQ(CountOf(folder.Path()), 1U);
}

TEST_F(WholeFileTest, AReplacedFileKeepsItsRights)
{
    const std::string path = folder.Write("shared.ofx", "former, and longer");
    fs::permissions(path, fs::perms(0644));

    ReplaceFile(path, "new");

    EXPECT_EQ(ReadFile(path), "new");
    EXPECT_EQ(ModeOf(path), 0644U);
}

TEST_F(WholeFileTest, OnAFullDiskTheFormerFileStaysWhole)
{
    const SmallDisk disk;
    if (!disk.Mounted())
        GTEST_SKIP() << "no disk of its own";
    ReplaceFile(disk.Path("kept"), "former");

    const std::string reason = ErrorOf([&] { ReplaceFile(disk.Path("kept"), kBig); }, 75);
    ErrorOf([&] { CreateFile(disk.Path("fresh"), kBig); }, 75);

    EXPECT_EQ(reason, "Cannot write " + disk.Path("kept") + ": No space left on device");
    EXPECT_EQ(disk.Read("kept"), "former");
    EXPECT_EQ(CountOf(disk.Path()), 1U);
}

TEST_F(WholeFileTest, InAFolderThatTakesNoFilesTheFormerFileStays)
{
    const std::string path = folder.Write("closed/kept", "former");
    fs::permissions(folder.Path("closed"), fs::perms(0500));
    {
        const AsOrdinaryUser nobody({folder.Path(), folder.Path("closed"), path});
        ErrorOf([&] { ReplaceFile(path, "new"); }, 75);
        ErrorOf([&] { CreateFile(folder.Path("closed/fresh"), "new"); }, 75);
    }
    fs::permissions(folder.Path("closed"), fs::perms(0700));

    EXPECT_EQ(ReadFile(path), "former");
    EXPECT_EQ(CountOf(folder.Path("closed")), 1U);
}

// Symptom: "No such file or directory" was reported instead of the reason.
TEST_F(WholeFileTest, AFolderThatTakesNoMoreFilesIsTheReasonForARefusedName)
{
    const std::string path = folder.Path("closing/fresh");
    folder.Write("closing/other", "");
    const AsOrdinaryUser nobody({folder.Path(), folder.Path("closing")});
    std::string reason;
    {
        WholeFile file(path, Existing::Refuse);
        fs::permissions(folder.Path("closing"), fs::perms(0500));
        reason = ErrorOf([&] { file.Keep(); }, 75);
        fs::permissions(folder.Path("closing"), fs::perms(0700));
    }

    EXPECT_EQ(reason, "Cannot write " + path + ": Permission denied");
    EXPECT_EQ(CountOf(folder.Path("closing")), 1U);
}

TEST_F(WholeFileTest, AFileThatMayNotBeWrittenIsNotReplaced)
{
    const std::string path = folder.Write("kept", "former");
    fs::permissions(path, fs::perms(0400));
    {
        const AsOrdinaryUser nobody({folder.Path(), path});
        EXPECT_EQ(ErrorOf([&] { ReplaceFile(path, "new"); }, 75),
                  "Cannot write " + path + ": Permission denied");
    }

    EXPECT_EQ(ReadFile(path), "former");
}

TEST_F(WholeFileTest, ALinkStaysOneAndItsFileIsReplaced)
{
    folder.Write("elsewhere/real", "former");
    fs::create_symlink("elsewhere/real", folder.Path("link"));
    fs::create_symlink("elsewhere/missing", folder.Path("dangling"));

    ReplaceFile(folder.Path("link"), "new");
    ReplaceFile(folder.Path("dangling"), "fresh");

    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_EQ(folder.Read("elsewhere/real"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path("dangling")));
    EXPECT_EQ(folder.Read("elsewhere/missing"), "fresh");
}

TEST_F(WholeFileTest, LinksThatLeadInACircleAreRefused)
{
    fs::create_symlink("b", folder.Path("a"));
    fs::create_symlink("a", folder.Path("b"));

    ErrorOf([&] { ReplaceFile(folder.Path("a"), "new"); }, 75);
}

TEST_F(WholeFileTest, ACreatedFileNeverReplacesAnything)
{
    const std::string path = folder.Write("there", "former");
    fs::create_symlink("nowhere", folder.Path("link"));

    EXPECT_EQ(ErrorOf([&] { CreateFile(path, "new"); }, 58), "File already exists: " + path);
    ErrorOf([&] { CreateFile(folder.Path("link"), "new"); }, 58);

    EXPECT_EQ(ReadFile(path), "former");
    EXPECT_EQ(CountOf(folder.Path()), 2U);
}

TEST_F(WholeFileTest, ANameTakenMeanwhileIsNotReplaced)
{
    WholeFile file(folder.Path("name"), Existing::Refuse);
    file.Write("mine");
    folder.Write("name", "another program's");

    ErrorOf([&] { file.Keep(); }, 58);

    EXPECT_EQ(folder.Read("name"), "another program's");
}

TEST_F(WholeFileTest, AFolderOfThatNameAndAMissingOneAreRefused)
{
    folder.Write("folder/inside", "");

    ErrorOf([&] { ReplaceFile(folder.Path("folder"), "new"); }, 75);
    ErrorOf([&] { ReplaceFile(folder.Path("no/such/file"), "new"); }, 75);

    EXPECT_TRUE(folder.Holds("folder/inside"));
}

TEST_F(WholeFileTest, APipeIsWrittenAsItIs)
{
    const std::string pipe = folder.Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::string received;
    std::thread reader([&] { received = ReadFile(pipe); });

    ReplaceFile(pipe, "through the pipe");

    reader.join();
    EXPECT_EQ(received, "through the pipe");
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(WholeFileTest, ADeviceThatTakesNothingIsAnError)
{
    EXPECT_EQ(ErrorOf([] { ReplaceFile("/dev/full", "new"); }, 75),
              "Cannot write /dev/full: No space left on device");
}

TEST_F(WholeFileTest, TheLongestNameCanBeWritten)
{
    const std::string name(255, 'n');

    CreateFile(folder.Path(name), "bytes");
    ReplaceFile(folder.Path(name), "new");

    EXPECT_EQ(folder.Read(name), "new");
}

}  // namespace
}  // namespace clb
