#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "import/StatementKind.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

class StatementKindTest : public testing::Test {
protected:
    TempFolder folder_;
};

TEST_F(StatementKindTest, AFileThatAnImportWouldRepairHasTheKindOfTheRepairedFile)
{
    const std::string bytes = "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\n\n<OFX></OFX>\n";
    const std::string path = folder_.Write("march.ofx", bytes);

    EXPECT_EQ(StatementKind(path), 2);
    EXPECT_EQ(folder_.Read("march.ofx"), bytes);
    EXPECT_FALSE(folder_.Holds("march.ofx.org"));
}

TEST_F(StatementKindTest, AQifFileIsRecognisedByItsName)
{
    EXPECT_EQ(StatementKind(folder_.Write("march.Qif", "!Type:Bank\n")), 3);
    EXPECT_EQ(StatementKind(folder_.Write(".qif", "!Type:Bank\n")), 3);
}

TEST_F(StatementKindTest, OtherFilesAreNotStatements)
{
    EXPECT_EQ(StatementKind(folder_.Write("photo.jpg", "\xff\xd8\xff")), 0);
    EXPECT_EQ(StatementKind(folder_.Write("empty.ofx", "")), 0);
}

TEST_F(StatementKindTest, AMissingFileAndAFolderAreErrors)
{
    EXPECT_THROW(static_cast<void>(StatementKind(folder_.Path("none.ofx"))), RuntimeError);
    EXPECT_THROW(static_cast<void>(StatementKind(folder_.Path())), RuntimeError);
}

}  // namespace
}  // namespace clb
