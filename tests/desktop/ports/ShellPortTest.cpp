#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <array>
#include <filesystem>

#include "desktop/help/HelpPage.h"
#include "desktop/look/TextConvert.h"
#include "desktop/ports/AddressBox.h"
#include "desktop/ports/ShellPort.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

/// Sets a variable of the environment for its own lifetime.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name), before_(qgetenv(name))
    {
        qputenv(name, QByteArray::fromStdString(value));
    }
    ~Variable() { before_.isNull() ? qunsetenv(name_) : qputenv(name_, before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    QByteArray before_;
};

/// A desktop of its own, at first without any browser. Replaces its viewer of files and keeps what
/// that was asked to show.
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

    /// Installs a program that writes its last argument into the file "started".
    std::string Program(const std::string& name)
    {
        const std::string path =
            folder.Write("bin/" + name, "#!/bin/sh\nfor last; do :; done\necho \"$last\" >\"" +
                                            folder.Path("started.part") + "\"\n/bin/mv \"" +
                                            folder.Path("started.part") + "\" \"" +
                                            folder.Path("started") + "\"\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }
    /// Gives the desktop a program for pages.
    void OpensPagesWith(const std::string& command, const std::string& lines = "")
    {
        folder.Write("data/applications/pages.desktop",
                     "[Desktop Entry]\nName=Pages\nCategories=Network;WebBrowser;\nExec=" +
                         command + "\n" + lines);
        folder.Write("data/applications/mimeinfo.cache",
                     "[MIME Cache]\ntext/html=gone.desktop;pages.desktop;\n"
                     "x-scheme-handler/http=pages.desktop;\n");
    }
    void HasBrowser() { OpensPagesWith(Program("pages") + " %u"); }
    void HasManual() { folder.Write("Help/index.html", "<h1>Welcome</h1>"); }

    std::string Shown() { return ToUtf8(viewer_.source().toLocalFile()); }
    std::string OpenedFor(const std::string& address)
    {
        viewer_.setSource(QUrl());
        Open(address);
        return ToUtf8(viewer_.source().toString());
    }
    /// Opens an address, and keeps and closes the box that says why not.
    void Open(const std::string& address)
    {
        why = shown = "";
        QTimer::singleShot(0, [this] {
            auto* box = dynamic_cast<AddressBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            why = ToUtf8(box->Why());
            shown = ToUtf8(box->findChild<QLineEdit*>()->text());
            for (QPushButton* button : box->findChildren<QPushButton*>())
                if (button->text() == "&Copy Address")
                    QTest::mouseClick(button, Qt::LeftButton);
            QTest::keyClick(box, Qt::Key_Escape);
        });
        shell.Open(address);
        QTest::qWait(1);
    }
    /// What the program was started with; empty if it was not.
    std::string Started()
    {
        QFile file(ToQString(folder.Path("started")));
        for (int tries = 0; tries < 100 && !file.exists(); ++tries)
            QTest::qWait(20);
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toStdString() : "";
    }
    [[nodiscard]] bool ManualIsOpen() { return shell.Manual() && shell.Manual()->isVisible(); }

    TempFolder folder;
    FakeMessageBox messages;
    ShellPort shell{messages};
    std::string why;
    std::string shown;

private:
    static constexpr std::array kSchemes = {"file", "http", "https", "ftp", "help"};
    QTextBrowser viewer_;
    Variable path_{"PATH", folder.Path("bin")};
    Variable data_{"XDG_DATA_DIRS", folder.Path("data")};
    Variable ownData_{"XDG_DATA_HOME", folder.Path("own")};
    Variable config_{"XDG_CONFIG_HOME", folder.Path("config")};
    Variable configs_{"XDG_CONFIG_DIRS", folder.Path("configs")};
    Variable browser_{"BROWSER", ""};
};

TEST_F(ShellPortTest, AWebAddressOpensWithOrWithoutItsScheme)
{
    HasBrowser();

    EXPECT_EQ(OpenedFor("https://bank.example/a?b=c"), "https://bank.example/a?b=c");
    EXPECT_EQ(OpenedFor("HTTP://bank.example"), "http://bank.example");
    EXPECT_EQ(OpenedFor("bank.example"), "http://bank.example");
    EXPECT_EQ(why, "");
}

/// A settings file may come from anywhere, and a file that is opened may be a program.
TEST_F(ShellPortTest, NothingButAWebAddressOpens)
{
    HasBrowser();
    const std::string program = folder.Write("harm.desktop", "[Desktop Entry]");

    EXPECT_EQ(OpenedFor(program), "");
    EXPECT_EQ(OpenedFor("file://" + program), "");
    EXPECT_EQ(OpenedFor("ftp://bank.example/harm"), "");
    EXPECT_EQ(OpenedFor("help:harm"), "");
    EXPECT_EQ(why, "This is not the address of a web page, so it was not opened.");
    EXPECT_EQ(shown, "help:harm");
}

TEST_F(ShellPortTest, WithoutTheNamedHelpFileThePagesInItsFolderOpen)
{
    HasBrowser();
    HasManual();

    shell.Help(folder.Path("Help/clb.chm"));

    EXPECT_EQ(Shown(), folder.Path("Help/index.html"));
    EXPECT_FALSE(ManualIsOpen());
}

TEST_F(ShellPortTest, ANamedHelpFileThatIsThereOpensItself)
{
    HasManual();
    folder.Write("Help/clb.chm", "a book");

    shell.Help(folder.Path("Help\\clb.chm"));

    EXPECT_EQ(Shown(), folder.Path("Help/clb.chm"));
}

TEST_F(ShellPortTest, AFolderWithSpacesAndAccentsWorks)
{
    HasBrowser();
    folder.Write("Geld & Ä/Help/index.html", "<p>help</p>");

    shell.Help(folder.Path("Geld & Ä/Help/clb.chm"));

    EXPECT_EQ(Shown(), folder.Path("Geld & Ä/Help/index.html"));
}

TEST_F(ShellPortTest, WithoutABrowserTheManualOpensInAWindow)
{
    HasManual();

    shell.Help(folder.Path("Help/clb.chm"));

    ASSERT_TRUE(ManualIsOpen());
    EXPECT_EQ(shell.Manual()->windowTitle(), "Help - Corvane Ledgerbook");
    EXPECT_FALSE(shell.Manual()->isModal());
    EXPECT_TRUE(shell.Manual()->findChild<HelpPage*>()->toPlainText().contains("Welcome"));
    EXPECT_EQ(Shown(), "");
}

TEST_F(ShellPortTest, AskedAgainTheSameWindowStaysOnItsPage)
{
    HasManual();
    folder.Write("Help/keys.html", "<h1>Keys</h1>");
    shell.Help(folder.Path("Help/clb.chm"));
    HelpWindow* const manual = shell.Manual();
    auto* page = manual->findChild<HelpPage*>();
    page->Show(QUrl::fromLocalFile(ToQString(folder.Path("Help/keys.html"))));

    shell.Help(folder.Path("Help/clb.chm"));
    EXPECT_EQ(shell.Manual(), manual);
    EXPECT_TRUE(page->toPlainText().contains("Keys"));

    QTest::keyClick(manual, Qt::Key_Escape);
    EXPECT_FALSE(ManualIsOpen());
    shell.Help(folder.Path("Help/clb.chm"));
    EXPECT_TRUE(page->toPlainText().contains("Welcome"));
}

/// A desktop's helper program is often installed where no browser is, and reports nothing then.
TEST_F(ShellPortTest, TheDesktopsHelperAloneIsNoBrowser)
{
    Program("xdg-open");
    HasManual();

    shell.Help(folder.Path("Help/clb.chm"));

    EXPECT_TRUE(ManualIsOpen());
    EXPECT_EQ(OpenedFor("https://bank.example/"), "");
    EXPECT_EQ(shown, "https://bank.example/");
}

TEST_F(ShellPortTest, ABrowserThatWasRemovedOrNeedsATerminalDoesNotCount)
{
    HasManual();
    OpensPagesWith(folder.Path("bin/removed") + " %u");
    shell.Help(folder.Path("Help/clb.chm"));
    EXPECT_TRUE(ManualIsOpen());
    shell.Manual()->close();

    OpensPagesWith(Program("w3m") + " %u", "Terminal=true\n");
    shell.Help(folder.Path("Help/clb.chm"));
    EXPECT_TRUE(ManualIsOpen());
    EXPECT_EQ(OpenedFor("https://bank.example/"), "");
}

TEST_F(ShellPortTest, AnEditorOfPagesIsNoBrowser)
{
    HasManual();
    folder.Write("data/applications/editor.desktop",
                 "[Desktop Entry]\nName=Editor\nExec=" + Program("editor") + " %f\n");
    folder.Write("config/mimeapps.list", "[Default Applications]\ntext/html=editor.desktop;\n");

    shell.Help(folder.Path("Help/clb.chm"));

    EXPECT_TRUE(ManualIsOpen());
    EXPECT_EQ(Shown(), "");
}

TEST_F(ShellPortTest, ABrowserInASandboxOpensPagesOfTheWebOnly)
{
    HasManual();
    OpensPagesWith(Program("flatpak") + " run --file-forwarding example @@u %u @@");

    shell.Help(folder.Path("Help/clb.chm"));

    EXPECT_TRUE(ManualIsOpen());
    EXPECT_EQ(OpenedFor("https://bank.example/"), "https://bank.example/");
}

TEST_F(ShellPortTest, TheBrowserThatTheEnvironmentNamesIsStarted)
{
    HasManual();
    Program("mine");
    const Variable browser("BROWSER", "gone:w3m:mine --new %s");

    Open("bank.example/a?b=c d");
    EXPECT_EQ(Started(), "http://bank.example/a?b=c%20d");
    EXPECT_EQ(why, "");

    std::filesystem::remove(folder.Path("started"));
    shell.Help(folder.Path("Help/clb.chm"));
    EXPECT_EQ(Started(), "file://" + folder.Path("Help/index.html"));
    EXPECT_FALSE(ManualIsOpen());
}

TEST_F(ShellPortTest, AnAddressWithoutABrowserCanBeCopied)
{
    QGuiApplication::clipboard()->clear();

    Open("bank.example");

    EXPECT_EQ(why,
              "No web browser was found on this computer. You can copy the address and open it "
              "elsewhere.");
    EXPECT_EQ(shown, "http://bank.example");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "http://bank.example");
}

TEST_F(ShellPortTest, ABrowserThatCannotBeStartedIsReported)
{
    std::filesystem::permissions(folder.Write("bin/firefox", "not a program"),
                                 std::filesystem::perms::owner_all);
    HasManual();
    shell.Help(folder.Path("Help/clb.chm"));
    EXPECT_TRUE(ManualIsOpen());

    Open("bank.example");
    EXPECT_EQ(why,
              "The web browser could not be started. You can copy the address and open it "
              "elsewhere.");
}

TEST_F(ShellPortTest, PagesThatAreMissingOrUnreadableAreReported)
{
    HasBrowser();
    for (const bool unreadable : {false, true}) {
        if (unreadable)
            std::filesystem::create_directories(folder.Path("Help/index.html"));
        messages.boxes.clear();

        shell.Help(folder.Path("Help/clb.chm"));

        ASSERT_EQ(messages.boxes.size(), 1U);
        EXPECT_EQ(messages.boxes[0].text.rfind("The help cannot be shown, because its first page "
                                               "cannot be read:\n\n" +
                                                   folder.Path("Help/index.html"),
                                               0),
                  0U);
        EXPECT_EQ(Shown(), "");
        EXPECT_FALSE(ManualIsOpen());
    }
}

}  // namespace
}  // namespace clb
