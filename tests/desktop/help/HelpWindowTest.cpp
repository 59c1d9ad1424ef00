// The window of the manual, used with keys and the mouse.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QWheelEvent>

#include "desktop/help/FindBar.h"
#include "desktop/help/HelpPage.h"
#include "desktop/help/HelpWindow.h"
#include "desktop/look/Colors.h"
#include "desktop/look/TextConvert.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

constexpr const char* kNav =
    "<nav><h2>Start</h2><ul><li><a href=\"index.html\">Welcome</a></li>"
    "<li><a href=\"keys.html\" aria-current=\"page\">Keys &amp; more</a></li></ul>"
    "<h2>More</h2><ul><li><a href=\"last.html\">Last</a></li></ul></nav>";

class HelpWindowTest : public testing::Test {
protected:
    HelpWindowTest()
    {
        folder_.Write("index.html",
                      Page("<h1>Welcome</h1><p>Read <a href=\"keys.html#far\">the far place</a> or "
                           "<a href=\"https://bank.example/\">a bank</a>.</p>"
                           "<img src=\"picture.png\" width=\"900\" height=\"500\">"));
        std::string lines;
        for (int line = 0; line < 200; ++line)
            lines += "<p>Line " + std::to_string(line) + "</p>";
        folder_.Write("keys.html", Page("<h1>Keys</h1><p>apple</p>" + lines +
                                        "<h2 id=\"far\">Far</h2><p>apple pie</p>" + lines));
        QImage(900, 500, QImage::Format_RGB32).save(ToQString(folder_.Path("picture.png")));
        window_ = std::make_unique<HelpWindow>(
            look_, [this](QWidget&, const QString& address) { opened_ = ToUtf8(address); });
        Open();
    }

    static std::string Page(const std::string& body)
    {
        return "<html><head><link rel=\"stylesheet\" href=\"style.css\"></head><body>" +
               std::string(kNav) + "<main>" + body + "</main></body></html>";
    }
    [[nodiscard]] QUrl Url(const std::string& page) const
    {
        return QUrl::fromLocalFile(ToQString(folder_.Path(page)));
    }
    void Open()
    {
        window_->Open(Url("index.html"));
        QTest::qWait(1);
    }
    HelpPage& Text() { return *window_->findChild<HelpPage*>(); }
    QTreeWidget& Contents() { return *window_->findChild<QTreeWidget*>("HelpContents"); }
    QWidget& Bar() { return *window_->findChild<QWidget*>("FindBar"); }
    QLineEdit& FindLine() { return *Bar().findChild<QLineEdit*>(); }
    std::string Answer() { return ToUtf8(Bar().findChild<QLabel*>("FindAnswer")->text()); }
    std::string Title() { return ToUtf8(Text().document()->firstBlock().text()); }
    static void Key(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QTest::keyClick(&widget, key, held);
        QTest::qWait(1);
    }
    /// Clicks the middle of a text of the page.
    void ClickOn(const QString& text)
    {
        QTextCursor found = Text().document()->find(text);
        QTextCursor before = found;
        before.setPosition(found.selectionStart());
        found.setPosition(found.selectionEnd());
        const QPoint place =
            (Text().cursorRect(before).center() + Text().cursorRect(found).center()) / 2;
        QTest::mouseClick(Text().viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::qWait(1);
    }
    int PictureWidth()
    {
        for (QTextBlock block = Text().document()->begin(); block.isValid(); block = block.next())
            for (auto at = block.begin(); !at.atEnd(); ++at)
                if (at.fragment().charFormat().isImageFormat())
                    return int(at.fragment().charFormat().toImageFormat().width());
        return 0;
    }

    TempFolder folder_;
    HelpLook look_;
    std::string opened_;
    std::unique_ptr<HelpWindow> window_;
};

TEST_F(HelpWindowTest, ThePageIsShownWithoutItsListOfContentsWhichIsBeside)
{
    EXPECT_EQ(Title(), "Welcome");
    EXPECT_FALSE(Text().toPlainText().contains("Keys & more"));
    ASSERT_EQ(Contents().topLevelItemCount(), 2);
    EXPECT_EQ(Contents().topLevelItem(0)->text(0), "Start");
    EXPECT_EQ(Contents().topLevelItem(0)->child(1)->text(0), "Keys & more");
    EXPECT_EQ(Contents().currentItem()->text(0), "Welcome");
    EXPECT_TRUE(Text().hasFocus());
}

TEST_F(HelpWindowTest, ALinkGoesToItsPlaceInAnotherPageAndBackComesBack)
{
    ClickOn("the far place");

    EXPECT_EQ(Title(), "Keys");
    EXPECT_GT(Text().verticalScrollBar()->value(), 500);
    EXPECT_EQ(Contents().currentItem()->text(0), "Keys & more");

    Key(Text(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Title(), "Welcome");
    EXPECT_EQ(Contents().currentItem()->text(0), "Welcome");
    Key(Text(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Title(), "Keys");
}

TEST_F(HelpWindowTest, AnAddressOfTheWebIsHandedOn)
{
    ClickOn("a bank");

    EXPECT_EQ(opened_, "https://bank.example/");
    EXPECT_EQ(Title(), "Welcome");
}

TEST_F(HelpWindowTest, TheListOfContentsShowsItsPagesAndCanBeHidden)
{
    Contents().setFocus();
    Key(Contents(), Qt::Key_Down);
    EXPECT_EQ(Title(), "Keys");

    Key(Contents(), Qt::Key_Down);
    EXPECT_EQ(Contents().currentItem()->text(0), "Last") << "the heading is passed";
    Key(Contents(), Qt::Key_Home);
    EXPECT_EQ(Title(), "Welcome");

    Key(Contents(), Qt::Key_F9);
    EXPECT_FALSE(Contents().isVisible());
    EXPECT_TRUE(Text().hasFocus());
    EXPECT_FALSE(look_.contents);

    Key(Text(), Qt::Key_F9);
    EXPECT_TRUE(Contents().hasFocus());
}

TEST_F(HelpWindowTest, ATextIsFoundAsItIsTypedAndAgain)
{
    Text().Show(Url("keys.html"));
    Key(Text(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(FindLine().hasFocus());

    QTest::keyClicks(&FindLine(), "apple");
    const int first = Text().textCursor().position();
    EXPECT_EQ(Text().textCursor().selectedText(), "apple");

    Key(FindLine(), Qt::Key_Return);
    const int second = Text().textCursor().position();
    EXPECT_GT(second, first);
    Key(FindLine(), Qt::Key_F3);
    EXPECT_EQ(Text().textCursor().position(), first) << "from the beginning again";
    Key(FindLine(), Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Text().textCursor().selectionEnd(), second);
    EXPECT_EQ(Answer(), "");

    QTest::keyClicks(&FindLine(), "x");
    EXPECT_EQ(Answer(), "This page does not contain it.");
}

TEST_F(HelpWindowTest, EscapeClosesTheBarFirstThenTheWindow)
{
    Key(Text(), Qt::Key_F, Qt::ControlModifier);
    Key(FindLine(), Qt::Key_Escape);
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_TRUE(Text().hasFocus());
    EXPECT_TRUE(window_->isVisible());

    Contents().setFocus();
    Key(Contents(), Qt::Key_Escape);
    EXPECT_FALSE(window_->isVisible());
}

TEST_F(HelpWindowTest, KeysAndTheWheelZoomThePage)
{
    const double ordinary = Text().font().pointSizeF();
    Key(Text(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(Text().font().pointSizeF(), ordinary);
    EXPECT_EQ(look_.zoom, 110);
    Key(Text(), Qt::Key_0, Qt::ControlModifier);
    Key(Text(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(look_.zoom, 90);

    QWheelEvent notch(QPointF(50, 50), Text().viewport()->mapToGlobal(QPoint(50, 50)), {},
                      QPoint(0, 120), Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Text().viewport(), &notch);
    EXPECT_EQ(look_.zoom, 100);
    EXPECT_DOUBLE_EQ(Text().font().pointSizeF(), ordinary);
}

TEST_F(HelpWindowTest, PicturesAreNeverWiderThanTheView)
{
    Key(Text(), Qt::Key_F9);
    window_->resize(1100, 700);
    QTest::qWait(1);
    const int wide = PictureWidth();
    EXPECT_LE(wide, 900);
    EXPECT_GT(wide, 500);

    window_->resize(500, 500);
    QTest::qWait(1);
    EXPECT_LT(PictureWidth(), 500);
    EXPECT_GT(PictureWidth(), 300);
    EXPECT_EQ(Text().horizontalScrollBar()->maximum(), 0);
}

TEST_F(HelpWindowTest, ThePageFollowsTheDesktopsColors)
{
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        dark.setColor(role, QColor(30, 32, 34));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, QColor(240, 240, 240));
    QApplication::setPalette(dark);
    QTest::qWait(1);

    const QTextBlock words = Text().document()->firstBlock();
    const QColor color = words.begin().fragment().charFormat().foreground().color();
    const QColor ground = Text().palette().color(QPalette::Base);
    QApplication::setPalette(before);
    QTest::qWait(1);

    EXPECT_GE(Contrast(color, ground), 4.5);
    EXPECT_LT(ground.lightness(), 60);
    EXPECT_EQ(Title(), "Welcome");
}

TEST_F(HelpWindowTest, APageThatIsMissingSaysSo)
{
    Text().Show(Url("gone.html"));

    EXPECT_EQ(Title(), "This page cannot be read");
    EXPECT_TRUE(Text().toPlainText().contains(ToQString(folder_.Path("gone.html"))));
}

TEST_F(HelpWindowTest, SizeZoomAndContentsAreKeptForTheNextTime)
{
    window_->resize(640, 480);
    Key(Text(), Qt::Key_Plus, Qt::ControlModifier);
    Key(Text(), Qt::Key_F9);
    window_.reset();

    HelpWindow next(look_, [](QWidget&, const QString&) {});
    next.Open(Url("index.html"));

    EXPECT_EQ(next.size(), QSize(640, 480));
    EXPECT_EQ(look_.zoom, 110);
    EXPECT_FALSE(next.findChild<QTreeWidget*>("HelpContents")->isVisible());
}

TEST_F(HelpWindowTest, EveryButtonHasANameAndItsKeyInItsTip)
{
    for (const QToolButton* button :
         window_->findChild<QToolBar*>()->findChildren<QToolButton*>()) {
        if (button->defaultAction() == nullptr || button->objectName() == "qt_toolbar_ext_button")
            continue;
        EXPECT_FALSE(button->text().isEmpty());
        EXPECT_TRUE(button->toolTip().contains('(')) << ToUtf8(button->text());
        EXPECT_EQ(button->focusPolicy(), Qt::TabFocus) << ToUtf8(button->text());
    }
}

}  // namespace
}  // namespace clb
