#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "base/RuntimeError.h"
#include "import/LineEndings.h"
#include "import/modImport.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

class FixLineEndingsTest : public ::testing::Test {
protected:
    void Repair(std::string_view bytes)
    {
        modImport::FixLineEndings(folder_.Write("s.ofx", bytes));
        EXPECT_EQ(WithRepairedLineEnds(std::string(bytes)), Repaired());
    }
    std::string Repaired() { return folder_.Read("s.ofx"); }
    std::string Kept() { return folder_.Read("s.ofx.org"); }

    std::int32_t ErrorOf(const std::string& path)
    {
        try {
            modImport::FixLineEndings(path);
        } catch (const RuntimeError& error) {
            message_ = error.what();
            return error.Number();
        }
        return 0;
    }

    std::size_t Files()
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator()));
    }

    TempFolder folder_;
    std::string message_;
};

/// A name may have 255 bytes, and the name of the backup is the longest one.
TEST_F(FixLineEndingsTest, ALongNameIsRepairedIfTheBackupsNameFits)
{
    const std::string name = std::string(247, 'n') + ".ofx";

    EXPECT_EQ(ErrorOf(folder_.Write(name, "one\ntwo\n")), 0);

    EXPECT_EQ(folder_.Read(name), "one\r\ntwo\r\n\r\n");
    EXPECT_EQ(folder_.Read(name + ".org"), "one\ntwo\n");
}

TEST_F(FixLineEndingsTest, BareLineFeedsGetACarriageReturn)
{
    Repair("one\ntwo\n");

    EXPECT_EQ(Repaired(), "one\r\ntwo\r\n\r\n");
    EXPECT_EQ(Kept(), "one\ntwo\n");
    EXPECT_EQ(Files(), 2U);
}

TEST_F(FixLineEndingsTest, ALastLineWithoutAnEndGetsOne)
{
    Repair("one\ntwo");

    EXPECT_EQ(Repaired(), "one\r\ntwo\r\n");
}

TEST_F(FixLineEndingsTest, WhatFollowsTheFirstCarriageReturnIsLost)
{
    Repair("one\ntwo\r\nthree\r\n");

    EXPECT_EQ(Repaired(), "one\r\ntwo\r\n");
    EXPECT_EQ(Kept(), "one\ntwo\r\nthree\r\n");
}

TEST_F(FixLineEndingsTest, AFileWhoseFirstLineHasNoLineFeedIsNotChanged)
{
    Repair("one\r\ntwo\nthree\n");

    EXPECT_EQ(Repaired(), "one\r\ntwo\nthree\n");
    EXPECT_FALSE(folder_.Holds("s.ofx.org"));
    EXPECT_EQ(Files(), 1U);
}

TEST_F(FixLineEndingsTest, AnEmptyFileAndOneWithoutLinesAreLeftAlone)
{
    Repair("");
    EXPECT_EQ(Repaired(), "");

    Repair("no end at all");
    EXPECT_EQ(Repaired(), "no end at all");

    Repair("\rone\n");
    EXPECT_EQ(Repaired(), "\rone\n");
    EXPECT_EQ(Files(), 1U);
}

TEST_F(FixLineEndingsTest, ARepairedFileNeedsNoSecondRepair)
{
    Repair("one\ntwo\n");

    modImport::FixLineEndings(folder_.Path("s.ofx"));

    EXPECT_EQ(Repaired(), "one\r\ntwo\r\n\r\n");
    EXPECT_EQ(Kept(), "one\ntwo\n");
}

TEST_F(FixLineEndingsTest, OtherBytesStayAsTheyAre)
{
    using namespace std::string_view_literals;
    Repair(
        "\xEF\xBB\xBF"
        "a\0\xE9\x80\n\xFF"sv);

    EXPECT_EQ(Repaired(),
              "\xEF\xBB\xBF"
              "a\0\xE9\x80\r\n\xFF\r\n"sv);
}

TEST_F(FixLineEndingsTest, ALongFileIsRepairedWhole)
{
    std::string lines;
    std::string expected;
    for (int i = 0; i < 50000; ++i) {
        lines += "line " + std::to_string(i) + "\n";
        expected += "line " + std::to_string(i) + "\r\n";
    }

    Repair(lines);

    EXPECT_EQ(Repaired(), expected + "\r\n");
    EXPECT_EQ(Kept(), lines);
}

TEST_F(FixLineEndingsTest, ALateFirstCarriageReturnStillEndsTheLine)
{
    const std::string first = "\n" + std::string(std::size_t{1} << 16, 'x');

    Repair(first + "\r\nlost");

    EXPECT_EQ(Repaired(), "\r" + first + "\r\n");
}

TEST_F(FixLineEndingsTest, AnExistingBackupIsNeverReplaced)
{
    folder_.Write("s.ofx.org", "precious");
    const std::string path = folder_.Write("s.ofx", "one\ntwo\n");

    EXPECT_EQ(ErrorOf(path), 58);

    EXPECT_EQ(message_, "File already exists");
    EXPECT_EQ(Repaired(), "one\ntwo\n");
    EXPECT_EQ(Kept(), "precious");
    EXPECT_EQ(Files(), 2U);
}

TEST_F(FixLineEndingsTest, AnExistingBackupIsNotAnErrorIfThereIsNothingToRepair)
{
    folder_.Write("s.ofx.org", "precious");

    EXPECT_EQ(ErrorOf(folder_.Write("s.ofx", "one\r\ntwo\r\n")), 0);
}

TEST_F(FixLineEndingsTest, AMissingFileIsAnError)
{
    EXPECT_EQ(ErrorOf(folder_.Path("none.ofx")), 53);
    EXPECT_EQ(message_, "File not found");
}

TEST_F(FixLineEndingsTest, AFolderAndAPipeAreErrors)
{
    const std::string pipe = folder_.Path("pipe.ofx");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);

    EXPECT_EQ(ErrorOf(folder_.Path()), 75);
    EXPECT_EQ(message_, "Path/File access error: " + folder_.Path());
    EXPECT_EQ(ErrorOf(pipe), 75);
}

TEST_F(FixLineEndingsTest, ThePermissionsStay)
{
    const std::string path = folder_.Write("s.ofx", "one\ntwo\n");
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);

    modImport::FixLineEndings(path);

    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::group_read);
    EXPECT_EQ(Repaired(), "one\r\ntwo\r\n\r\n");
}

TEST_F(FixLineEndingsTest, ANameTooLongForTheBackupChangesNothing)
{
    const std::string path = folder_.Write(std::string(252, 'n'), "one\ntwo\n");

    EXPECT_EQ(ErrorOf(path), 75);

    EXPECT_EQ(folder_.Read(std::string(252, 'n')), "one\ntwo\n");
    EXPECT_EQ(Files(), 1U);
}

/// A limit to the size of files simulates the full disk.
TEST_F(FixLineEndingsTest, AFullDiskChangesNothing)
{
    for (const std::size_t size : {200U, 100000U}) {
        const std::string text(size, '\n');
        const std::string path = folder_.Write("s.ofx", text);
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{100, before.rlim_max};
        const auto handler = signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);

        const std::int32_t error = ErrorOf(path);

        setrlimit(RLIMIT_FSIZE, &before);
        signal(SIGXFSZ, handler);
        EXPECT_EQ(error, 75) << size;
        EXPECT_EQ(folder_.Read("s.ofx"), text);
        EXPECT_EQ(Files(), 1U);
    }
}

TEST_F(FixLineEndingsTest, AFolderThatCannotHoldNewFilesChangesNothing)
{
    const std::string path = folder_.Write("s.ofx", "one\ntwo\n");
    fs::permissions(folder_.Path(), fs::perms::owner_read | fs::perms::owner_exec);

    {
        const AsOrdinaryUser nobody({folder_.Path(), path});
        EXPECT_EQ(ErrorOf(path), 75);
    }

    fs::permissions(folder_.Path(), fs::perms::owner_all);
    EXPECT_EQ(Repaired(), "one\ntwo\n");
    EXPECT_EQ(Files(), 1U);
}

}  // namespace
}  // namespace clb
