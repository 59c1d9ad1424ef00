// New rows as a person enters them.
#include <QApplication>
#include <QPushButton>
#include <QScrollBar>

#include "desktop/grid/CellEditor.h"
#include "desktop/grid/EmptyState.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class NewRowTest : public WindowTest {
protected:
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QWidget* focused = QApplication::focusWidget();
        Key(focused ? *focused : window_, key, held);
    }
    void Type(const char* text)
    {
        QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text));
    }
    /// Types a new row and saves it with Enter.
    void Enter(const char* day, const char* description)
    {
        Press(Qt::Key_N, Qt::ControlModifier);
        Type(day);
        Press(Qt::Key_Tab);
        Type(description);
        Press(Qt::Key_Return);
    }
    std::vector<std::string> Days()
    {
        std::vector<std::string> texts;
        for (std::size_t row = 1; row < Grid().Rows().Count(); ++row)
            texts.push_back(Grid().CellText(row, 1).substr(8));
        return texts;
    }
    bool InSight(std::size_t row)
    {
        const GridView& grid = GridWidget(window_);
        const QRect line = grid.Layout().CellRect(row, 1);
        return line.top() >= 0 && line.bottom() <= grid.viewport()->height();
    }
    void FillMonth(int rows)
    {
        for (int row = 0; row < rows; ++row)
            books_.Execute(
                "INSERT INTO Trans (AccountID, PostDate, PayeeName, Amount, [Year], Period, "
                "Category, [Sequence]) VALUES ('C1', #2006-03-02#, 'Kiosk', -1, 2006, 3, "
                "'(none)', " +
                std::to_string(1000 + row) + ")");
    }
};

TEST_F(NewRowTest, ASavedRowGoesToItsPlaceAtOnce)
{
    ClickNode("Checking");
    Enter("2006-03-03", "Baker 03b");

    EXPECT_EQ(Days(), (std::vector<std::string>{"04", "03", "03", "02", "01"}));
    EXPECT_EQ(Grid().CellText(2, 2), "Baker 03b");
    EXPECT_EQ(Grid().Position(), 1);
}

TEST_F(NewRowTest, TheRowThatIsClickedIsReachedAlthoughTheSavedOneTookAPlaceAboveIt)
{
    ClickNode("Checking");
    Press(Qt::Key_N, Qt::ControlModifier);
    Type("2006-03-05");
    ClickCell(2, 2);

    EXPECT_EQ(Grid().CellText(Grid().Row(), 1), "2006-03-03");
    EXPECT_EQ(Grid().CellText(1, 1), "2006-03-05");
}

TEST_F(NewRowTest, ARowThatGoesFarAwayIsShownUntilTheNextOneIsTyped)
{
    FillMonth(80);
    ClickNode("Checking");
    Enter("2006-03-30", "Far above");
    ASSERT_EQ(Grid().CellText(1, 2), "Far above");

    EXPECT_TRUE(InSight(1));
    EXPECT_EQ(Grid().Position(), 1);
    Type("2006-03-01");
    EXPECT_TRUE(InSight(Grid().Row()));
    EXPECT_FALSE(InSight(1));
}

TEST_F(NewRowTest, TheKeyOfNewRecordGoesToTheFirstColumnOfTheEmptyLineToo)
{
    ClickNode("Checking");
    ClickCell(5, 3);
    ASSERT_FALSE(MenuAction("mnuE_New")->isEnabled());

    Press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Grid().Col(), 1);
    EXPECT_TRUE(Grid().Editing());
    EXPECT_FALSE(MenuAction("mnuE_New")->isEnabled());

    Press(Qt::Key_Tab);
    Type("Grocer");
    Press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Grid().Row(), 5U);
    EXPECT_EQ(Grid().Col(), 1);
    EXPECT_EQ(Grid().CellText(5, 2), "Grocer");
}

TEST_F(NewRowTest, TheEmptyPageOffersANewTransactionWhileTheGridIsOnItsLine)
{
    ClickNode("Purse");
    ClickCell(1, 3);
    ASSERT_FALSE(MenuAction("mnuE_New")->isEnabled());
    QPushButton* offered = nullptr;
    for (QPushButton* link : GridWidget(window_).Empty().findChildren<QPushButton*>())
        if (link->isVisible() && link->text() == QLatin1String("New transaction"))
            offered = link;
    ASSERT_TRUE(offered);

    ClickAt(*offered, offered->rect());

    EXPECT_TRUE(Grid().Editing());
    EXPECT_EQ(Grid().Col(), 1);
}

}  // namespace
}  // namespace clb
