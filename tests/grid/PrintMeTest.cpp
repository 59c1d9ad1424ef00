// The grid is printed from a file in the program's folder.

#include <gmock/gmock.h>

#include <filesystem>

#include "grid/CVGrid.h"
#include "tests/support/FakePorts.h"
#include "tests/support/GridFixture.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

class PrintMeTest : public testing::Test {
protected:
    PrintMeTest() : grid_(dates_, printing_, folder_.Path()) { FillShop(grid_.DBArray()); }
    bool Exists(const std::string& name) { return fs::exists(folder_.Path() + "/" + name); }

    IsoDateForm dates_;
    FakePrintJob printing_;
    TempFolder folder_;
    CVGrid grid_;
};

TEST_F(PrintMeTest, TheGridIsPrintedFromAFileThatIsThenRemoved)
{
    grid_.OnPrint([] { return GridPage{"Shop", "", "", {}}; });

    grid_.PrintMe();

    ASSERT_EQ(printing_.files, std::vector<std::string>{folder_.Path() + "/print.html"});
    EXPECT_THAT(printing_.documents[0], testing::HasSubstr("<h1>Shop</h1>"));
    EXPECT_THAT(printing_.documents[0], testing::HasSubstr("Cheese"));
    EXPECT_FALSE(Exists("print.html"));
}

TEST_F(PrintMeTest, EveryPrintFileIsRemovedAndNothingElse)
{
    folder_.Write("print.html", "from an interrupted run");
    folder_.Write("print.css", "x");
    folder_.Write("print.of.mine", "x");
    folder_.Write("printed.txt", "x");
    folder_.Write("blueprint.html", "x");
    fs::create_directory(folder_.Path() + "/print.folder");

    grid_.PrintMe();

    EXPECT_FALSE(Exists("print.html"));
    EXPECT_FALSE(Exists("print.css"));
    EXPECT_FALSE(Exists("print.of.mine"));
    EXPECT_TRUE(Exists("printed.txt"));
    EXPECT_TRUE(Exists("blueprint.html"));
    EXPECT_TRUE(Exists("print.folder"));
}

TEST_F(PrintMeTest, AFileThatCannotBeWrittenIsTheCallersError)
{
    fs::create_directory(folder_.Path() + "/print.html");

    EXPECT_EQ(RuntimeErrorOf([this] { grid_.PrintMe(); }), errors::PathAccess);

    EXPECT_TRUE(printing_.files.empty());
}

TEST_F(PrintMeTest, WhenPrintingCannotBeStartedTheFileIsLeft)
{
    printing_.fails = true;

    EXPECT_EQ(RuntimeErrorOf([this] { grid_.PrintMe(); }), errors::FileNotFound);

    EXPECT_TRUE(Exists("print.html"));
}

}  // namespace
}  // namespace clb
