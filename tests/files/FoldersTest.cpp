#include <gtest/gtest.h>

#include <filesystem>

#include "files/FileError.h"
#include "files/Folders.h"
#include "files/ReadFile.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

TEST(FoldersTest, MissingFoldersAreMadeForTheUserAloneAndOthersStayAsTheyAre)
{
    const TempFolder folder;
    folder.Write("there/file", "");
    fs::permissions(folder.Path("there"), fs::perms(0755));

    MakePrivateFolders(folder.Path("there/some/where"));
    MakePrivateFolder(folder.Path("there"));

    EXPECT_EQ(fs::status(folder.Path("there")).permissions(), fs::perms(0755));
    EXPECT_EQ(fs::status(folder.Path("there/some")).permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(folder.Path("there/some/where")).permissions(), fs::perms(0700));
    EXPECT_NO_THROW(SyncFolder(folder.Path("there")));
}

TEST(FoldersTest, AFileInTheWayIsAnError)
{
    const TempFolder folder;
    folder.Write("file", "");

    EXPECT_THROW(MakePrivateFolders(folder.Path("file/below")), FileError);
}

TEST(FoldersTest, TheFolderOfABareNameIsTheCurrentOne)
{
    EXPECT_EQ(FolderOf("name"), ".");
    EXPECT_EQ(FolderOf("/name"), "/");
    EXPECT_EQ(FolderOf("some/where/name"), "some/where");
}

TEST(ReadFileTest, AFileComesWholeWhateverItsLength)
{
    const TempFolder folder;
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 1'000'000U}) {
        const std::string bytes(size, 'x');
        EXPECT_EQ(ReadFile(folder.Write("file", bytes)), bytes) << size;
    }
}

TEST(ReadFileTest, AMissingFileAndAFolderAreErrors)
{
    const TempFolder folder;
    try {
        ReadFile(folder.Path("missing"));
        FAIL() << "nothing was refused";
    } catch (const FileError& error) {
        EXPECT_EQ(error.Number(), errors::FileNotFound);
    }
    try {
        ReadFile(folder.Path());
        FAIL() << "nothing was refused";
    } catch (const FileError& error) {
        EXPECT_EQ(error.Number(), errors::PathAccess);
    }
}

}  // namespace
}  // namespace clb
