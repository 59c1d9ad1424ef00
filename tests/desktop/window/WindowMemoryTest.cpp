#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMouseEvent>
#include <QScreen>

#include "desktop/grid/GridHeader.h"
#include "desktop/help/HelpWindow.h"
#include "desktop/ports/FileDialogPort.h"
#include "desktop/window/SplitHandle.h"
#include "desktop/window/WindowMemory.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

/// A start of the program with its window and new books.
struct Start {
    explicit Start(const QString& file)
        : events(books.messages),
          window(books.window, events),
          memory(file, window, books.window, {dialogs, help})
    {
        memory.Restore();
    }
    void Show()
    {
        window.show();
        QTest::qWait(1);
    }
    std::int32_t Width(std::int32_t column)
    {
        return books.window.Grid.Columns().Item(column).width;
    }

    Books books;
    UserEvents events;
    MainWindow window;
    FileDialogPort dialogs;
    HelpLook help;
    WindowMemory memory;
};

class WindowMemoryTest : public testing::Test {
protected:
    [[nodiscard]] QString File() const
    {
        return ToQString(folder_.Path()) + "/config/corvane-ledgerbook/window.ini";
    }
    void Write(const QByteArray& text)
    {
        folder_.Write("config/corvane-ledgerbook/window.ini", text.toStdString());
    }
    static void Drag(QWidget& widget, QPoint from, int by)
    {
        QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, from);
        const QPoint to = from + QPoint(by, 0);
        QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &move);
        QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, to);
    }

    TempFolder folder_;
};

TEST_F(WindowMemoryTest, TheManualsWindowOpensAsItWasLeft)
{
    {
        Start first(File());
        first.Show();
        first.help = {QSize(640, 480), 120, false};
        first.window.close();
    }

    Start second(File());

    EXPECT_EQ(second.help.size, QSize(640, 480));
    EXPECT_EQ(second.help.zoom, 120);
    EXPECT_FALSE(second.help.contents);
    second.window.close();
}

TEST_F(WindowMemoryTest, FilesAreAskedForInTheFolderOfTheLastOneAtTheNextStartToo)
{
    const QString folder = ToQString(folder_.Path());
    {
        Start first(File());
        first.Show();
        first.dialogs.LastFolder(folder);
        first.window.close();
    }

    Start second(File());

    EXPECT_EQ(second.dialogs.FolderFor({}), folder);
    second.window.close();
}

TEST_F(WindowMemoryTest, SizePlaceBorderAndColumnsComeBackAtTheNextStart)
{
    std::int32_t tree = 0;
    std::int32_t column = 0;
    {
        Start first(File());
        first.Show();
        first.window.resize(740, 420);
        first.window.move(70, 50);
        tree = first.books.window.TreeWidth() + 33;
        Drag(BorderWidget(first.window), QPoint(2, 40), 33);
        const GridLayout& layout = GridWidget(first.window).Layout();
        Drag(GridWidget(first.window).Header(), QPoint(layout.CellRect(1, 2).right() + 1, 5), 21);
        column = first.Width(2);
        QTest::qWait(1);
        first.window.close();
    }

    Start second(File());
    second.Show();

    EXPECT_EQ(second.window.size(), QSize(740, 420));
    EXPECT_EQ(second.window.pos(), QPoint(70, 50));
    EXPECT_EQ(second.books.window.TreeWidth(), tree);
    EXPECT_EQ(TreeWidget(second.window).width(), tree);
    EXPECT_EQ(second.Width(2), column);
}

TEST_F(WindowMemoryTest, TheGridsZoomComesBackAtTheNextStart)
{
    {
        Start first(File());
        first.Show();
        EXPECT_EQ(first.window.GridZoomPercent(), 100);
        first.window.GridZoomPercent(140);
        first.window.close();
    }

    Start second(File());
    second.Show();

    EXPECT_EQ(second.window.GridZoomPercent(), 140);
}

TEST_F(WindowMemoryTest, AZoomOutOfRangeBecomesTheNearest)
{
    Write("[Grid]\nzoom=9000\n");
    Start large(File());
    EXPECT_EQ(large.window.GridZoomPercent(), 300);

    Write("[Grid]\nzoom=nonsense\n");
    Start odd(File());
    EXPECT_EQ(odd.window.GridZoomPercent(), 100);
}

TEST_F(WindowMemoryTest, AMaximisedWindowComesBackMaximisedAndKeepsItsNormalSize)
{
    {
        Start first(File());
        first.Show();
        first.window.resize(500, 400);
        QTest::qWait(1);
        first.window.showMaximized();
        QTest::qWait(1);
        first.window.close();
    }

    Start second(File());
    second.Show();
    EXPECT_TRUE(second.window.isMaximized());

    second.window.showNormal();
    QTest::qWait(1);
    EXPECT_EQ(second.window.size(), QSize(500, 400));
}

TEST_F(WindowMemoryTest, APlaceOffEveryScreenIsNotUsed)
{
    const QPoint usual = [this] {
        Start plain(File());
        plain.Show();
        return plain.window.pos();
    }();
    for (const char* place : {"left=90000\ntop=100", "left=100\ntop=-400", "left=-560\ntop=100"}) {
        Write(QByteArray("[Window]\nwidth=600\nheight=400\n") + place + "\n");
        Start start(File());
        start.Show();

        EXPECT_EQ(start.window.size(),
                  QSize(600, 400).boundedTo(start.window.screen()->availableSize()))
            << place;
        EXPECT_EQ(start.window.pos(), usual) << place;
    }
}

TEST_F(WindowMemoryTest, AWindowThatIsPartlyOffTheScreenIsMovedOntoIt)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QPoint place :
         {QPoint(screen.right() - 200, 20), QPoint(-300, 20), QPoint(20, screen.bottom() - 60)}) {
        Write(QByteArray("[Window]\nwidth=600\nheight=400\nleft=") + QByteArray::number(place.x()) +
              "\ntop=" + QByteArray::number(place.y()) + "\n");
        Start start(File());
        start.Show();

        EXPECT_TRUE(screen.contains(QRect(start.window.pos(), start.window.size())))
            << place.x() << ' ' << place.y();
    }
}

TEST_F(WindowMemoryTest, AWindowLargerThanTheScreenIsMadeToFit)
{
    Write("[Window]\nleft=0\ntop=0\nwidth=9000\nheight=8000\n");
    Start start(File());
    start.Show();

    const QSize room = start.window.screen()->availableSize();
    EXPECT_EQ(start.window.size().boundedTo(room), start.window.size());
}

TEST_F(WindowMemoryTest, TheFirstWindowFitsTheScreen)
{
    Start start(File());
    start.window.resize(9000, 8000);
    start.memory.Restore();
    start.Show();

    const QSize room = start.window.screen()->availableSize();
    EXPECT_EQ(start.window.size().boundedTo(room), start.window.size());
    EXPECT_GT(start.window.width(), room.width() / 2);
}

TEST_F(WindowMemoryTest, OnlyItsUserMayReadTheFile)
{
    {
        Start start(File());
        start.Show();
        start.window.close();
    }

    const auto mine = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(QFile::permissions(File()), mine);
    EXPECT_EQ(QFile::permissions(QFileInfo(File()).path()),
              mine | QFile::ExeOwner | QFile::ExeUser);
}

TEST_F(WindowMemoryTest, ABrokenFileIsIgnored)
{
    for (const char* text :
         {"\xff\xfe\x00 no settings at all [[[",
          "[Window]\nwidth=wide\nheight=\nmaximized=perhaps\n",
          "[Columns]\n1-99=50\n77-1=10\nx-y=3\n1-1=-5\n4-1=99999999999999999999\n",
          "[Tree]\nwidth=2000000000\n"}) {
        Write(text);
        Start start(File());
        start.Show();

        EXPECT_TRUE(start.books.messages.boxes.empty());
        EXPECT_FALSE(start.window.isMaximized()) << text;
        EXPECT_GT(GridWidget(start.window).width(), 100) << text;
        EXPECT_GE(start.Width(1), GridComponent::kLeastWidth) << text;
    }
}

TEST_F(WindowMemoryTest, AFolderInPlaceOfTheFileIsNotAnError)
{
    QDir().mkpath(File());
    Start start(File());
    start.Show();

    EXPECT_TRUE(start.window.close());

    EXPECT_TRUE(start.books.messages.boxes.empty());
    EXPECT_TRUE(QFileInfo(File()).isDir());
}

TEST_F(WindowMemoryTest, AFileInTheWayOfTheFolderIsNotAnError)
{
    folder_.Write("config", "in the way");
    Start start(File());
    start.Show();

    EXPECT_TRUE(start.window.close());

    EXPECT_TRUE(start.books.messages.boxes.empty());
}

class BorderTest : public WindowTest {};

TEST_F(BorderTest, TheArrowKeysMoveTheBorderAndEscapeGoesBack)
{
    window_.InnerSize(900, 500);
    ClickNode("Purse");
    const int before = TreeWidget(window_).width();

    Key(window_, Qt::Key_F8);
    ASSERT_TRUE(BorderWidget(window_).hasFocus());
    Key(BorderWidget(window_), Qt::Key_Right);
    EXPECT_GT(TreeWidget(window_).width(), before);
    EXPECT_EQ(GridWidget(window_).x(), TreeWidget(window_).width() + 2);
    Key(BorderWidget(window_), Qt::Key_Left);
    EXPECT_EQ(TreeWidget(window_).width(), before);

    Key(BorderWidget(window_), Qt::Key_Escape);
    EXPECT_TRUE(TreeWidget(window_).hasFocus());
}

TEST_F(BorderTest, NeitherTheTreeNorTheGridCanBePushedAway)
{
    window_.InnerSize(900, 500);
    Key(window_, Qt::Key_F8);

    Key(BorderWidget(window_), Qt::Key_Home);
    EXPECT_GT(TreeWidget(window_).width(), 30);

    Key(BorderWidget(window_), Qt::Key_End);
    EXPECT_GT(GridWidget(window_).width(), 100);
}

}  // namespace
}  // namespace clb
