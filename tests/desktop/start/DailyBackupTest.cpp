// The notices in the status bar's second panel, and the day's backup, which causes most of them.
#include <QAccessible>
#include <QProgressBar>
#include <QStatusBar>

#include "desktop/start/DailyBackup.h"
#include "desktop/window/NoticeLabel.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class NoticeTest : public WindowTest {
protected:
    NoticeLabel& Notice() { return *window_.findChild<NoticeLabel*>(QStringLiteral("notice")); }
};

TEST_F(NoticeTest, ANoticeStaysUntilItIsSettled)
{
    EXPECT_TRUE(Notice().isHidden());

    Model().notices.Set("backup", "The daily backup failed.");
    Model().notices.Set("balance", "A balance is wrong.");

    EXPECT_TRUE(Notice().isVisible());
    const QString whole = "The daily backup failed.\nA balance is wrong.";
    EXPECT_EQ(Notice().toolTip(), whole);
    EXPECT_EQ(Notice().accessibleName(), whole);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Notice())->text(QAccessible::Name), whole);
    Model().notices.Set("backup", "");
    EXPECT_EQ(Notice().toolTip(), "A balance is wrong.");
    Model().notices.Set("balance", "");
    EXPECT_TRUE(Notice().isHidden());
}

TEST_F(NoticeTest, LongWorkHasThePanelWhileItRuns)
{
    Model().notices.Set("backup", "The daily backup failed.");
    {
        const WorkProgress::Work work(Model().progress);
        Model().progress.Step(1, 10, "Reading");
        EXPECT_TRUE(Notice().isHidden());
        EXPECT_FALSE(window_.findChild<QProgressBar*>(QStringLiteral("workBar"))->isHidden());
    }

    EXPECT_TRUE(Notice().isVisible());
}

TEST_F(NoticeTest, ALongNoticeIsCutShortAndMovesNothing)
{
    const QSize window = window_.size();
    std::string text = "The daily backup failed;";
    for (int words = 0; words < 40; ++words)
        text += " and failed once more";

    Model().notices.Set("backup", text);
    QTest::qWait(1);

    EXPECT_EQ(window_.size(), window);
    auto* bar = qobject_cast<QStatusBar*>(Notice().parentWidget());
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(bar->rect().contains(Notice().geometry()));
    EXPECT_GT(Notice().width(), bar->width() / 2);
    EXPECT_EQ(Notice().toolTip(), ToQString(text));
}

class DailyBackupTest : public NoticeTest {
protected:
    DailyBackupTest() { books_.clock.now = *Date::FromIso("2026-11-21 10:00:00"); }
    std::string Folder() const { return books_.folder.Path(); }
};

TEST_F(DailyBackupTest, WhatFailedAtAnEarlierStartIsReportedAtOnce)
{
    std::filesystem::create_directory(books_.folder.Path("db/backup"));
    Backups(Folder()).Keep({false, "2026-11-20", "The disk is full."});
    std::optional<BackupFailure> reported;

    const DailyBackup backup(window_, Folder(), books_.clock,
                             [&](const auto& failure) { reported = failure; });

    ASSERT_TRUE(reported.has_value());
    EXPECT_EQ(reported->reason, "The disk is full.");
}

TEST_F(DailyBackupTest, ADayWithItsBackupSettlesTheNotice)
{
    ASSERT_EQ(Backups(Folder()).Daily(books_.clock.Now()), std::nullopt);
    std::vector<std::optional<BackupFailure>> reported;

    const DailyBackup backup(
        window_, Folder(), books_.clock, [&](const auto& failure) { reported.push_back(failure); },
        QStringLiteral("/bin/false"));
    window_.repaint();
    // Reported at the start, and again after the helper has checked the balances.
    QTRY_COMPARE(reported.size(), 2U);

    EXPECT_EQ(reported[0], std::nullopt);
    EXPECT_EQ(reported[1], std::nullopt);
}

/// Symptom: a start did not report a balance that did not fit its rows.
TEST_F(DailyBackupTest, TheHelperListsBalancesThatDoNotFitTheirRows)
{
    Model().Data().Execute("UPDATE Account SET CurrentBalance = 3 WHERE AccountID = 'P1'");
    Model().Settle();

    EXPECT_EQ(MakeDailyBackup(Folder(), *Date::FromIso("2026-11-21")), 0);

    EXPECT_EQ(books_.Rows("SELECT AccountID, Stored, Total, NoticedBy FROM CvBalance"),
              (std::vector<std::string>{"C1|0|-18|start", "P1|3|0|start"}));
}

/// The test program itself is the helper here. It makes no backup.
TEST_F(DailyBackupTest, AHelperThatMakesNoneIsReportedAndKept)
{
    std::filesystem::create_directory(books_.folder.Path("db/backup"));
    std::vector<std::optional<BackupFailure>> reported;

    const DailyBackup backup(
        window_, Folder(), books_.clock, [&](const auto& failure) { reported.push_back(failure); },
        QStringLiteral("/bin/false"));
    window_.repaint();
    QTRY_COMPARE(reported.size(), 1U);

    ASSERT_TRUE(reported[0].has_value());
    EXPECT_EQ(reported[0]->reason, "The program that makes it was stopped, or could not start.");
    EXPECT_EQ(Backups(Folder()).KeptFailure(), reported[0]);
}

TEST_F(DailyBackupTest, AHelperThatCannotStartIsReported)
{
    std::vector<std::optional<BackupFailure>> reported;

    const DailyBackup backup(
        window_, Folder(), books_.clock, [&](const auto& failure) { reported.push_back(failure); },
        QStringLiteral("/nowhere/ledgerbook"));
    window_.repaint();
    QTRY_COMPARE(reported.size(), 1U);

    EXPECT_TRUE(reported[0].has_value());
}

TEST_F(DailyBackupTest, TheHelperMakesTheBackupOrSaysWhyNot)
{
    EXPECT_EQ(MakeDailyBackup(Folder(), *Date::FromIso("2026-11-21")), 0);
    EXPECT_TRUE(Backups(Folder()).HasDay(*Date::FromIso("2026-11-21")));
    std::filesystem::remove_all(books_.folder.Path("db/backup"));
    books_.folder.Write("db/backup", "");

    testing::internal::CaptureStdout();
    EXPECT_EQ(MakeDailyBackup(Folder(), *Date::FromIso("2026-11-21")), 1);

    const auto failure = BackupFailure::FromLines(testing::internal::GetCapturedStdout());
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->reason,
              "The file '" + books_.folder.Path("db/backup") + "' is not a folder.");
}

}  // namespace
}  // namespace clb
