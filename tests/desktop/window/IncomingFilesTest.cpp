// Statements that are dropped on the window, or named at a start.

#include <QDialog>
#include <QDropEvent>
#include <QMimeData>

#include "desktop/window/IncomingFiles.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/PressedResult.h"
#include "user/FormUser.h"

namespace clb {
namespace {

class IncomingFilesTest : public WindowTest {
protected:
    IncomingFilesTest()
    {
        window_.OnDrop([this](const QStringList& paths) { incoming_.Take(paths); });
    }
    std::string Statement(const std::string& name, const std::string& account,
                          const std::string& fitid)
    {
        return books_.folder.Write(
            name,
            "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n\r\n<OFX><STMTRS><BANKACCTFROM><"
            "ACCTID>" +
                account +
                "</ACCTID></"
                "BANKACCTFROM><BANKTRANLIST><STMTTRN><DTPOSTED>20060305<TRNAMT>-1<FITID>" +
                fitid + "<NAME>Shop</STMTTRN></BANKTRANLIST></STMTRS></OFX>\r\n");
    }
    /// Drags files over the window. Returns whether it accepts them.
    bool Drop(const std::vector<std::string>& paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string& path : paths)
            urls << QUrl::fromLocalFile(ToQString(path));
        data.setUrls(urls);
        return Drop(data);
    }
    bool Drop(const QMimeData& data)
    {
        const QPoint place = window_.rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window_, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window_, &drop);
        return drop.isAccepted();
    }
    std::vector<std::string> Imported()
    {
        return books_.Rows("SELECT FITID FROM Trans WHERE FITID <> '' ORDER BY [Sequence]");
    }

    IncomingFiles incoming_{Model(), window_, events_};
};

TEST_F(IncomingFilesTest, StatementsOfEveryKindAreTaken)
{
    books_.modal.steps.emplace_back([](Form& form) {
        FormUser user(form);
        user.Option("optAccount(1)");
        user.Choose("cmbAccountID", "Purse");
        user.Press("btnOK");
    });

    Drop({books_.folder.Write("list.csv", "Date,Description,Amount\n2006-03-15,Shop,-1.50\n")});

    ASSERT_TRUE(QTest::qWaitFor([this] { return Imported().size() == 1; }));
    EXPECT_EQ(books_.One("SELECT AccountID FROM Trans WHERE FITID <> ''"), "P1");
}

TEST_F(IncomingFilesTest, DroppedStatementsAreImportedOneAfterTheOther)
{
    const std::string before = Model().statusBar.Panel(1);

    EXPECT_TRUE(Drop({Statement("a.ofx", "C1", "A"), Statement("b.ofx", "C1", "B")}));

    ASSERT_TRUE(QTest::qWaitFor([this] { return Imported().size() == 2; }))
        << testing::PrintToString(books_.modal.names);
    EXPECT_EQ(Imported(), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(Model().statusBar.Panel(1), before);
    EXPECT_TRUE(Model().window.Enabled());
}

TEST_F(IncomingFilesTest, AFileThatIsNotAStatementIsReportedAndTheNextOneImported)
{
    Drop({books_.folder.Write("page.html", "<html><body>Hello</body></html>"),
          Statement("a.ofx", "C1", "A")});

    ASSERT_TRUE(QTest::qWaitFor([this] { return Imported().size() == 1; }));
    ASSERT_TRUE(QTest::qWaitFor([this] { return Model().result.Shown(); }));
    EXPECT_EQ(Model().result.Text(),
              "2 files: Checking: 1 added; 1 file not imported \u2013 March 2006");
    EXPECT_EQ(Captions(Model().result), "Show|What was left out|Undo");
    EXPECT_TRUE(Model().window.Enabled());
}

TEST_F(IncomingFilesTest, AMissingFileIsReported)
{
    incoming_.Take({ToQString(books_.folder.Path("gone.ofx"))});

    ASSERT_TRUE(QTest::qWaitFor([this] { return !books_.messages.boxes.empty(); }));
    EXPECT_EQ(books_.messages.boxes[0].text, "gone.ofx\nFile not found");
    EXPECT_TRUE(Model().window.Enabled());
}

TEST_F(IncomingFilesTest, ARowThatCannotBeSavedStopsTheImport)
{
    ClickNode("Checking");
    Model().menus.Find("mnuE_New")->Press();
    Grid().EditText("x");

    Drop({Statement("a.ofx", "C1", "A")});
    QTest::qWait(300);

    EXPECT_TRUE(Imported().empty());
    EXPECT_TRUE(Grid().Editing());
}

TEST_F(IncomingFilesTest, FilesWaitForAnOpenDialog)
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();

    incoming_.Take({ToQString(Statement("a.ofx", "C1", "A"))});
    QTest::qWait(250);
    EXPECT_TRUE(Imported().empty());
    dialog.close();

    EXPECT_TRUE(QTest::qWaitFor([this] { return Imported().size() == 1; }));
}

TEST_F(IncomingFilesTest, TextsAndAddressesOfTheWebAreNotTaken)
{
    QMimeData text;
    text.setText(QStringLiteral("statement"));
    QMimeData web;
    web.setUrls({QUrl(QStringLiteral("https://bank.example/a.ofx"))});

    EXPECT_FALSE(Drop(text));
    EXPECT_FALSE(Drop(web));
}

TEST_F(IncomingFilesTest, ARowThatCannotBeSavedKeepsTheFilesForLater)
{
    ClickNode("Checking");
    ClickCell(1, 3);
    QTest::keyClicks(&GridWidget(window_), "much");

    Drop({Statement("march.ofx", "C1", "F1")});
    ASSERT_TRUE(QTest::qWaitFor([this] { return Model().result.Shown(); }));
    EXPECT_TRUE(Imported().empty());
    EXPECT_TRUE(Model().result.Text().starts_with("Not imported: march.ofx. "));

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    PressResult(Model().result, "Import");
    ASSERT_TRUE(QTest::qWaitFor([this] { return Imported().size() == 1; }));
}

}  // namespace
}  // namespace clb
