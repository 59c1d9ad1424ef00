#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/HelpFiles.h"
#include "platform/HelpFolder.h"
#include "platform/ProgramFolder.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

mode_t ModeOf(const std::string& path)
{
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 0777;
}

class HelpFolderTest : public testing::Test {
protected:
    void ExpectWholeManual()
    {
        for (const EmbeddedFile& file : HelpFiles().files)
            EXPECT_EQ(folder.Read("Help/" + std::string(file.name)), file.bytes) << file.name;
    }

    TempFolder folder;
};

TEST_F(HelpFolderTest, ANewFolderHoldsTheManualForTheUserAlone)
{
    DeliverFolder(folder.Path("books"), "the bytes");

    EXPECT_EQ(ModeOf(folder.Path("books/Help")), 0700U);
    EXPECT_TRUE(folder.Read("books/Help/index.html").starts_with("<!DOCTYPE html>"));
    for (const EmbeddedFile& file : HelpFiles().files) {
        const std::string name = "books/Help/" + std::string(file.name);
        EXPECT_EQ(folder.Read(name), file.bytes) << name;
        EXPECT_EQ(ModeOf(folder.Path(name)), 0600U) << name;
    }
}

TEST_F(HelpFolderTest, AnOlderManualIsReplacedAndOtherFilesStay)
{
    folder.Write("Help/version", "0123456789abcdef");
    folder.Write("Help/index.html", "what the last version said");
    folder.Write("Help/my notes.txt", "mine");

    EXPECT_TRUE(DeliverHelp(folder.Path()));

    ExpectWholeManual();
    EXPECT_EQ(ModeOf(folder.Path("Help/index.html")), 0600U);
    EXPECT_EQ(folder.Read("Help/my notes.txt"), "mine");
}

TEST_F(HelpFolderTest, APageThatIsMissingOrCutIsWrittenAgain)
{
    DeliverHelp(folder.Path());
    fs::remove(folder.Path("Help/keys.html"));
    folder.Write("Help/budget.html", "<!DOCTYPE");

    EXPECT_TRUE(DeliverHelp(folder.Path()));

    ExpectWholeManual();
}

TEST_F(HelpFolderTest, ACompleteManualIsNotWrittenAgain)
{
    DeliverHelp(folder.Path());
    const std::string page = folder.Path("Help/index.html");
    const auto longAgo = fs::last_write_time(page) - std::chrono::hours(24);
    fs::last_write_time(page, longAgo);

    EXPECT_TRUE(DeliverHelp(folder.Path()));

    EXPECT_EQ(fs::last_write_time(page), longAgo);
}

TEST_F(HelpFolderTest, AFolderThatCannotBeWrittenIsIgnored)
{
    folder.Write("Help", "a file where the folder should be");

    EXPECT_FALSE(DeliverHelp(folder.Path()));
    EXPECT_FALSE(DeliverHelp(folder.Path("nowhere")));

    EXPECT_EQ(folder.Read("Help"), "a file where the folder should be");
    EXPECT_FALSE(folder.Holds("nowhere"));
}

TEST_F(HelpFolderTest, AProgramFolderIsMadeEvenIfTheManualCannotBeWritten)
{
    folder.Write("Help", "a file where the folder should be");

    DeliverFolder(folder.Path(), "the bytes");

    EXPECT_EQ(folder.Read("db/clb.mdb"), "the bytes");
}

TEST_F(HelpFolderTest, AHalfReplacedManualDoesNotCountAsComplete)
{
    // A folder with the name of a page makes the delivery fail in the middle.
    DeliverHelp(folder.Path());
    fs::remove(folder.Path("Help/window.html"));
    folder.Write("Help/window.html/in the way", "");

    EXPECT_FALSE(DeliverHelp(folder.Path()));
    EXPECT_FALSE(folder.Holds("Help/version"));

    fs::remove_all(folder.Path("Help/window.html"));
    EXPECT_TRUE(DeliverHelp(folder.Path()));
    ExpectWholeManual();
}

}  // namespace
}  // namespace clb
