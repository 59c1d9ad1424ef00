#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QTextBrowser>
#include <array>

#include "desktop/look/TextConvert.h"
#include "desktop/ports/ShellPort.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

/// Replaces the desktop's viewer of files and keeps what it was asked to show.
class ShellPortTest : public testing::Test {
protected:
    ShellPortTest()
    {
        for (const char* scheme : kSchemes)
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &viewer_, "setSource");
    }
    ~ShellPortTest() override
    {
        for (const char* scheme : kSchemes)
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }

    std::string Shown() { return ToUtf8(viewer_.source().toLocalFile()); }
    std::string OpenedFor(const std::string& address)
    {
        viewer_.setSource(QUrl());
        shell.Open(address);
        return ToUtf8(viewer_.source().toString());
    }

    TempFolder folder;
    ShellPort shell;

private:
    static constexpr std::array kSchemes = {"file", "http", "https", "ftp", "help"};
    QTextBrowser viewer_;
};

TEST_F(ShellPortTest, AWebAddressOpensWithOrWithoutItsScheme)
{
    EXPECT_EQ(OpenedFor("https://bank.example/a?b=c"), "https://bank.example/a?b=c");
    EXPECT_EQ(OpenedFor("HTTP://bank.example"), "http://bank.example");
    EXPECT_EQ(OpenedFor("bank.example"), "http://bank.example");
}

/// A settings file may come from anywhere, and a file that is opened may be a program.
TEST_F(ShellPortTest, NothingButAWebAddressOpens)
{
    const std::string program = folder.Write("harm.desktop", "[Desktop Entry]");

    EXPECT_EQ(OpenedFor(program), "");
    EXPECT_EQ(OpenedFor("file://" + program), "");
    EXPECT_EQ(OpenedFor("ftp://bank.example/harm"), "");
    EXPECT_EQ(OpenedFor("help:harm"), "");
}

TEST_F(ShellPortTest, WithoutTheNamedHelpFileThePagesInItsFolderOpen)
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

TEST_F(ShellPortTest, AFolderWithSpacesAndAccentsWorks)
{
    folder.Write("Geld & Ä/Help/index.html", "<p>help</p>");

    shell.Help(folder.Path("Geld & Ä/Help/clb.chm"));

    EXPECT_EQ(Shown(), folder.Path("Geld & Ä/Help/index.html"));
}

}  // namespace
}  // namespace clb
