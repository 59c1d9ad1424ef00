#include "desktop/ShellPort.h"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QTextBrowser>

#include "desktop/TextConvert.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

/// Stands in for the desktop's viewer of files and keeps what it was to show.
class ShellPortTest : public testing::Test {
protected:
    ShellPortTest()
    {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &viewer_, "setSource");
    }
    ~ShellPortTest() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    std::string Shown() { return ToUtf8(viewer_.source().toLocalFile()); }

    TempFolder folder;
    ShellPort shell;

private:
    QTextBrowser viewer_;
};

TEST_F(ShellPortTest, WithoutTheNamedHelpFileThePagesBesideItOpen)
{
    folder.Write("Help/index.html", "<p>help</p>");

    shell.Help(folder.Path("Help/clb.chm"));

    EXPECT_EQ(Shown(), folder.Path("Help/index.html"));
}

TEST_F(ShellPortTest, ANamedHelpFileThatIsThereOpensItself)
{
    folder.Write("Help/index.html", "<p>help</p>");
    folder.Write("Help/clb.chm", "a book");

    shell.Help(folder.Path("Help\\clb.chm"));

    EXPECT_EQ(Shown(), folder.Path("Help/clb.chm"));
}

TEST_F(ShellPortTest, AFolderWithSpacesAndAccentsIsNoTrouble)
{
    folder.Write("Geld & Ä/Help/index.html", "<p>help</p>");

    shell.Help(folder.Path("Geld & Ä/Help/clb.chm"));

    EXPECT_EQ(Shown(), folder.Path("Geld & Ä/Help/index.html"));
}

}  // namespace
}  // namespace clb
