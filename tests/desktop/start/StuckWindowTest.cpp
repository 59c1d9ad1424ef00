// The small window beside a main window that a command has left disabled.
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>

#include "desktop/start/RestoreOffer.h"
#include "desktop/start/StuckWindow.h"
#include "engine/storage/Database.h"
#include "engine/storage/EngineError.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class StuckWindowTest : public WindowTest {
protected:
    StuckWindowTest()
    {
        events_.WhenIdle([this] { stuck_.Follow(); });
    }
    ~StuckWindowTest() override { events_.WhenIdle({}); }

    /// The user imports a file that is not a statement.
    std::string ImportNonsense()
    {
        std::string file = books_.folder.Write("letter.txt", "Dear bank\r\n");
        books_.files.answers.push_back(file);
        MenuAction("mnuF_Import")->trigger();
        QTest::qWait(1);
        return file;
    }
    void Press(const char* button)
    {
        QTest::mouseClick(stuck_.findChild<QPushButton*>(button), Qt::LeftButton);
        QTest::qWait(1);
    }
    QPushButton& Button(const char* name) { return *stuck_.findChild<QPushButton*>(name); }
    /// Closes the window as the button in its title bar does.
    static void CloseBySystem(QWidget& window)
    {
        window.windowHandle()->close();
        QTest::qWait(1);
    }

    StuckWindow stuck_{books_.window, events_, window_};
};

TEST_F(StuckWindowTest, ASuccessfulImportShowsNothing)
{
    const std::string file = books_.folder.Write("empty.qif", "!Type:Bank\r\n^\r\n");
    books_.files.answers.push_back(file);

    MenuAction("mnuF_Import")->trigger();
    QTest::qWait(1);

    EXPECT_TRUE(Model().window.Enabled());
    EXPECT_FALSE(stuck_.isVisible());
}

TEST_F(StuckWindowTest, AfterAnInvalidFileItSaysWhatHappened)
{
    const std::string file = ImportNonsense();

    ASSERT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_EQ(books_.messages.boxes[0].text, "Invalid file format.");
    EXPECT_TRUE(stuck_.isVisible());
    EXPECT_TRUE(stuck_.findChild<QLabel*>()->text().contains(ToQString(file)));
    EXPECT_FALSE(Model().window.Enabled());
    EXPECT_EQ(Model().statusBar.Panel(1), "Importing " + file + "...");
    EXPECT_EQ(books_.pointer.code, pointer::Hourglass);
}

TEST_F(StuckWindowTest, StartAgainEndsThisRunWithTheDataUntouched)
{
    const auto rows = books_.Rows("SELECT * FROM Trans");
    ImportNonsense();

    Press("again");

    EXPECT_TRUE(stuck_.StartsAgain());
    EXPECT_FALSE(Model().Loaded());
    EXPECT_FALSE(stuck_.isVisible());
    EXPECT_FALSE(window_.isVisible());
    Connection after;
    after.Open("Data Source=" + books_.folder.Path() + "/db/clb.mdb");
    EXPECT_EQ(after.Execute("SELECT COUNT(*) FROM Trans").Get(0),
              Value(static_cast<std::int32_t>(rows.size())));
}

TEST_F(StuckWindowTest, QuitEndsTheProgram)
{
    ImportNonsense();

    Press("quit");

    EXPECT_FALSE(Model().Loaded());
    EXPECT_FALSE(stuck_.StartsAgain());
}

TEST_F(StuckWindowTest, ClosingTheSmallWindowEndsTheProgram)
{
    ImportNonsense();

    CloseBySystem(stuck_);

    EXPECT_FALSE(Model().Loaded());
    EXPECT_FALSE(stuck_.StartsAgain());
}

TEST_F(StuckWindowTest, TheDisabledMainWindowCanBeClosedAfterTheCommand)
{
    // Symptom: a main window left disabled could not even be closed.
    ImportNonsense();

    CloseBySystem(window_);

    EXPECT_FALSE(Model().Loaded());
    EXPECT_FALSE(window_.isVisible());
}

TEST_F(StuckWindowTest, ADamagedFileIsReportedWithTheBackupThatCanBeRestored)
{
    stuck_.Damaged({true, "2026-11-20-101500", "The file 'clb.mdb' is damaged: page 3."});

    EXPECT_TRUE(stuck_.isVisible());
    EXPECT_FALSE(Model().window.Enabled());
    const QString text = stuck_.findChild<QLabel*>()->text();
    EXPECT_TRUE(text.startsWith("The file 'clb.mdb' is damaged: page 3.")) << ToUtf8(text);
    EXPECT_TRUE(text.contains("The last good backup is of 2026-11-20.")) << ToUtf8(text);
    EXPECT_EQ(Button("restore").text(), "&Restore the backup of 2026-11-20");
    EXPECT_TRUE(Button("restore").isDefault());
    EXPECT_TRUE(Button("again").isHidden());

    Press("restore");

    EXPECT_TRUE(stuck_.StartsAgain());
    EXPECT_EQ(stuck_.Restores(), "2026-11-20-101500");
    EXPECT_FALSE(Model().Loaded());
}

TEST_F(StuckWindowTest, WithoutAGoodBackupADamagedFileLetsGoOnOrQuit)
{
    stuck_.Damaged({true, "", "The file is damaged."});
    EXPECT_TRUE(Button("restore").isHidden());
    EXPECT_TRUE(Button("quit").isDefault());

    Press("goOn");

    EXPECT_TRUE(Model().window.Enabled());
    EXPECT_FALSE(stuck_.isVisible());
    stuck_.Damaged({true, "", "The file is damaged."});
    EXPECT_FALSE(stuck_.isVisible()) << "the user has decided";
}

TEST_F(StuckWindowTest, QuittingADamagedFileRestoresNothing)
{
    stuck_.Damaged({true, "2026-11-20", "The file is damaged."});

    Press("quit");

    EXPECT_FALSE(Model().Loaded());
    EXPECT_FALSE(stuck_.StartsAgain());
    EXPECT_EQ(stuck_.Restores(), "");
}

TEST_F(StuckWindowTest, DamageWaitsForTheEndOfTheCommand)
{
    events_.Run([this] {
        stuck_.Damaged({true, "2026-11-20", "The file is damaged."});
        EXPECT_FALSE(stuck_.isVisible());
        EXPECT_TRUE(Model().window.Enabled());
    });

    EXPECT_TRUE(stuck_.isVisible());
    EXPECT_FALSE(Model().window.Enabled());
}

TEST_F(StuckWindowTest, AfterAStoppedCommandDamageIsReportedInItsPlace)
{
    ImportNonsense();

    stuck_.Damaged({true, "2026-11-20", "The file is damaged."});

    EXPECT_TRUE(stuck_.findChild<QLabel*>()->text().startsWith("The file is damaged."));
    EXPECT_FALSE(Button("restore").isHidden());
    EXPECT_TRUE(Button("again").isHidden());
}

TEST_F(StuckWindowTest, ABackupIsOfferedForDataThatCannotBeOpened)
{
    const auto box = BuildRestoreOffer({true, "2026-11-20", "The file is damaged."});

    EXPECT_TRUE(box->text().startsWith("The file is damaged."));
    auto* restore = box->findChild<QPushButton*>("restore");
    EXPECT_EQ(restore->text(), "&Restore the backup of 2026-11-20");
    EXPECT_EQ(box->defaultButton(), restore);
    EXPECT_EQ(box->escapeButton(), box->findChild<QPushButton*>("quit"));
}

/// Symptom: the window showed the error and ended, at every start.
TEST_F(StuckWindowTest, ABookWithAWrongCellIsOfferedTheNewestBackupWithoutIt)
{
    Backups backups(books_.folder.Path());
    books_.window.Settle();
    backups.Daily(*Date::FromIso("2026-11-20"));
    {
        Database storage;
        storage.OpenExisting(books_.folder.Path("db/clb.mdb"));
        storage.Run("UPDATE Account SET OpeningBalance = '1,5' WHERE AccountID = 'C1'");
    }
    backups.Daily(*Date::FromIso("2026-11-21"));
    ASSERT_EQ(backups.Names().size(), 2U);

    try {
        Model().View().BuildTree();
        ADD_FAILURE() << "the accounts were read";
    } catch (const EngineError& error) {
        EXPECT_EQ(BackupAgainst(backups, error), "2026-11-20");
    }
}

TEST_F(StuckWindowTest, WhileACommandRunsTheDisabledMainWindowStaysAndNothingElseShows)
{
    events_.Run([this] {
        Model().window.Enabled(false);
        events_.Run([] {});
        EXPECT_FALSE(stuck_.isVisible());
        CloseBySystem(window_);
        EXPECT_TRUE(Model().Loaded());
        Model().window.Enabled(true);
    });

    EXPECT_FALSE(stuck_.isVisible());
}

}  // namespace
}  // namespace clb
