// Every command by its menu line, its button and its keys.

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

#include "app/WindowCommands.h"
#include "desktop/grid/CellEditor.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class CommandsTest : public WindowTest {
protected:
    CommandsTest() { Activate(); }
    /// The offscreen platform does not give the focus back to the window after a menu.
    void Activate()
    {
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        QTest::qWait(1);
        QApplication::setActiveWindow(&window_);
        QTest::qWait(1);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QWidget* focused = QApplication::focusWidget();
        Key(focused ? *focused : window_, key, held);
    }
    /// Opens a menu and clicks one of its lines.
    void ClickLine(const std::string& menu, const std::string& item)
    {
        QMenu* lines = window_.menuBar()->findChild<QMenu*>(ToQString(menu));
        QAction* line = MenuAction(item);
        ASSERT_TRUE(lines && line);
        lines->popup(window_.mapToGlobal(QPoint(5, 30)));
        QTest::mouseClick(lines, Qt::LeftButton, Qt::NoModifier,
                          lines->actionGeometry(line).center());
        Activate();
    }
    void ClickButton(const std::string& key)
    {
        QAction* action = ToolbarWidget(window_).Action(key);
        for (QToolButton* button : ToolbarWidget(window_).findChildren<QToolButton*>())
            if (button->defaultAction() == action)
                QTest::mouseClick(button, Qt::LeftButton);
        QTest::qWait(1);
    }
    std::string Count(const std::string& table)
    {
        return books_.One("SELECT COUNT(*) FROM " + table);
    }
};

TEST_F(CommandsTest, NewRecordEditsTheFirstColumnOfANewRow)
{
    ClickNode("Checking");
    ClickLine("mnuEdit", "mnuE_New");

    EXPECT_EQ(Grid().Row(), 5U);
    EXPECT_EQ(Grid().Col(), 1);
    EXPECT_TRUE(Grid().Editing());
    EXPECT_TRUE(GridWidget(window_).Editor().Line().hasFocus());
}

TEST_F(CommandsTest, TheNewButtonAndItsKeysDoTheSame)
{
    ClickNode("Checking");
    ClickButton("New");
    EXPECT_TRUE(Grid().Editing());
    EXPECT_EQ(Grid().Row(), 5U);

    ClickNode("Checking");
    ClickCell(2, 2);
    Press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(Grid().Editing());
    EXPECT_EQ(Grid().Row(), 5U);
}

TEST_F(CommandsTest, DeleteAsksAndDeletesTheCurrentRow)
{
    ClickNode("Checking");
    ClickCell(2, 2);
    books_.messages.answers = {BoxAnswer::No, BoxAnswer::Yes, BoxAnswer::Yes, BoxAnswer::Yes};

    ClickLine("mnuEdit", "mnuE_Delete");
    EXPECT_EQ(Count("Trans"), "4");

    ClickLine("mnuEdit", "mnuE_Delete");
    EXPECT_EQ(Count("Trans"), "3");
    ClickButton("Delete");
    EXPECT_EQ(Count("Trans"), "2");
    Press(Qt::Key_Delete);
    EXPECT_EQ(Count("Trans"), "1");
}

TEST_F(CommandsTest, TheDeleteKeyDeletesTextWhileEditing)
{
    ClickNode("Checking");
    ClickCell(1, 3);
    Press(Qt::Key_F2);
    Press(Qt::Key_Home);

    Press(Qt::Key_Delete);

    EXPECT_EQ(Count("Trans"), "4");
    EXPECT_EQ(GridWidget(window_).Editor().Line().text(), QStringLiteral("4.50"));
}

TEST_F(CommandsTest, ATransactionMovesToTheNextAndPreviousMonth)
{
    ClickNode("Checking");
    ClickCell(1, 2);

    ClickLine("mnuEdit", "mnuE_MoveNext");
    EXPECT_EQ(Grid().Rows().Count(), 4U);
    ClickLine("mnuEdit", "mnuE_MovePrev");
    EXPECT_EQ(Grid().Rows().Count(), 3U);

    EXPECT_EQ(books_.Rows("SELECT COUNT(*) FROM Trans GROUP BY Period ORDER BY Period"),
              (std::vector<std::string>{"1", "2", "1"}));
}

TEST_F(CommandsTest, ATransactionIsSplit)
{
    ClickNode("Checking");
    ClickCell(1, 2);
    books_.modal.steps.push_back(
        [](Form& form) { static_cast<Button*>(form.Find("btnOK"))->Press(); });

    ClickLine("mnuEdit", "mnuE_Split");

    EXPECT_EQ(Count("Trans"), "5");
    EXPECT_EQ(Grid().Rows().Count(), 6U);
}

TEST_F(CommandsTest, TheBudgetIsCopiedFromThePreviousMonth)
{
    books_.Execute(
        "INSERT INTO Budget (Category, Amount, [Year], Period) VALUES "
        "('Food', -100, 2006, 2)");
    ClickNode("Budget");

    ClickLine("mnuEdit", "mnuE_Copy");

    EXPECT_EQ(Grid().CellText(2, 1), "Food");
}

TEST_F(CommandsTest, PrintingTakesThePageFromTheGrid)
{
    ClickNode("Checking");

    ClickLine("mnuFile", "mnuF_Print");
    Press(Qt::Key_P, Qt::ControlModifier);

    ASSERT_EQ(books_.printing.documents.size(), 2U);
    EXPECT_NE(books_.printing.documents[1].find("Checking"), std::string::npos);
}

TEST_F(CommandsTest, ImportAndExportAskForAFile)
{
    ClickNode("Checking");

    ClickLine("mnuFile", "mnuF_Import");
    ClickLine("mnuFile", "mnuF_Export");
    Press(Qt::Key_I, Qt::ControlModifier);
    Press(Qt::Key_E, Qt::ControlModifier);

    ASSERT_EQ(books_.files.questions.size(), 4U);
    EXPECT_FALSE(books_.files.questions[0].save);
    EXPECT_TRUE(books_.files.questions[1].save);
}

TEST_F(CommandsTest, HelpOpensByLineAndKey)
{
    ClickLine("mnuHelp", "mnuH_HelpTopics");
    Press(Qt::Key_F1);

    EXPECT_EQ(books_.shell.helped,
              std::vector<std::string>(2, books_.folder.Path() + "/Help/clb.chm"));
}

TEST_F(CommandsTest, TheWebPagesOpen)
{
    ClickLine("mnuHelp", "mnuH_OnTheWeb");
    ClickLine("mnuHelp", "mnuH_OnlineTutorial");

    ASSERT_EQ(books_.shell.opened.size(), 2U);
    EXPECT_NE(books_.shell.opened[0], books_.shell.opened[1]);
}

TEST_F(CommandsTest, OptionsAndAboutShowTheirForms)
{
    ClickLine("mnuTools", "mnuT_Options");
    ClickLine("mnuHelp", "mnuH_About");

    EXPECT_EQ(books_.modal.names, (std::vector<std::string>{"frmOptions", "frmAbout"}));
}

TEST_F(CommandsTest, TheBankLinkSaysWhereToSetItsAddress)
{
    ClickButton("Link");

    ASSERT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_EQ(books_.messages.boxes[0].text,
              "You have not yet set your bank's URL, please do so from Tools|Options...");
}

TEST_F(CommandsTest, TheMonthStepsByButtonsAndKeys)
{
    ClickButton("Back");
    EXPECT_EQ(Model().cmbPeriod.Index(), 1);
    ClickButton("Forward");
    EXPECT_EQ(Model().cmbPeriod.Index(), 2);
    Press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Model().cmbPeriod.Index(), 3);
    Press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Model().cmbPeriod.Index(), 2);
}

TEST_F(CommandsTest, KeysThatLeaveTheRowSaveItFirst)
{
    ClickNode("Checking");
    ClickCell(1, 2);
    Key(*QApplication::focusWidget(), Qt::Key_M);

    Press(Qt::Key_R, Qt::ControlModifier);

    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Description = 'm'"), "1");
    EXPECT_FALSE(Grid().Editing());
}

TEST_F(CommandsTest, ARefusedRowKeepsTheMonth)
{
    ClickNode("Budget");
    ClickCell(1, 2);
    Key(*QApplication::focusWidget(), Qt::Key_5);

    Press(Qt::Key_Right, Qt::AltModifier);

    EXPECT_EQ(Model().cmbPeriod.Index(), 2);
    ASSERT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_EQ(books_.messages.boxes[0].text, "Please enter a category.");
}

/// A menu command that reads the rows, or reads them again.
struct Line {
    std::string menu;
    std::string item;
};

class RowInEditTest : public CommandsTest, public testing::WithParamInterface<Line> {
protected:
    std::string Saved(const std::string& description)
    {
        return books_.One("SELECT COUNT(*) FROM Trans WHERE Description = '" + description + "'");
    }
    bool NothingRan()
    {
        return books_.files.questions.empty() && books_.printing.documents.empty() &&
               books_.modal.names.empty() && books_.http.urls.empty() &&
               books_.One("SELECT COUNT(*) FROM Trans WHERE Period = 3") == "4";
    }
};

/// Symptom: moving, copying the budget, the options and an import dropped what was typed.
TEST_P(RowInEditTest, IsSavedBeforeACommandReadsTheRows)
{
    ClickNode("Checking");
    ClickCell(1, 2);
    Key(*QApplication::focusWidget(), Qt::Key_M);
    ASSERT_EQ(Saved("m"), "0");

    ClickLine(GetParam().menu, GetParam().item);

    EXPECT_EQ(Saved("m"), "1");
    EXPECT_FALSE(Grid().Editing());
}

TEST_P(RowInEditTest, StopsTheCommandWhenItIsRefused)
{
    ClickNode("Checking");
    ClickCell(1, 3);
    Key(*QApplication::focusWidget(), Qt::Key_X);

    ClickLine(GetParam().menu, GetParam().item);

    EXPECT_TRUE(NothingRan());
    EXPECT_TRUE(Grid().Editing());
    EXPECT_EQ(GridWidget(window_).Editor().Line().text(), QStringLiteral("x"));
}

// Export is disabled while a cell is in edit.
INSTANTIATE_TEST_SUITE_P(
    Menus, RowInEditTest,
    testing::Values(Line{"mnuFile", "mnuF_Import"}, Line{"mnuFile", "mnuF_Print"},
                    Line{"mnuEdit", "mnuE_Copy"}, Line{"mnuEdit", "mnuE_MovePrev"},
                    Line{"mnuEdit", "mnuE_MoveNext"}, Line{"mnuEdit", "mnuE_Split"},
                    Line{"mnuTools", "mnuT_UpdateQuotes"}, Line{"mnuTools", "mnuT_Options"}),
    [](const auto& test) { return test.param.item; });

class NewRowInEditTest : public RowInEditTest {};

TEST_P(NewRowInEditTest, IsSavedBeforeACommandReadsTheRows)
{
    ClickNode("Checking");
    ClickLine("mnuEdit", "mnuE_New");
    ClickCell(5, 2);
    Key(*QApplication::focusWidget(), Qt::Key_N);

    ClickLine(GetParam().menu, GetParam().item);

    EXPECT_EQ(Saved("n"), "1");
    EXPECT_FALSE(Grid().Editing());
}

// A row that is not saved yet cannot be moved or split.
INSTANTIATE_TEST_SUITE_P(Menus, NewRowInEditTest,
                         testing::Values(Line{"mnuFile", "mnuF_Import"},
                                         Line{"mnuFile", "mnuF_Print"},
                                         Line{"mnuEdit", "mnuE_Copy"},
                                         Line{"mnuTools", "mnuT_UpdateQuotes"},
                                         Line{"mnuTools", "mnuT_Options"}),
                         [](const auto& test) { return test.param.item; });

/// Symptom: the key read the rows without the one that was being typed.
TEST_F(CommandsTest, TheKeyOfImportSavesTheRowInEditFirst)
{
    ClickNode("Checking");
    ClickCell(1, 2);
    Key(*QApplication::focusWidget(), Qt::Key_M);

    Press(Qt::Key_I, Qt::ControlModifier);

    EXPECT_EQ(books_.files.questions.size(), 1U);
    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Description = 'm'"), "1");
}

TEST_F(CommandsTest, CommandsHaveTheUsualKeys)
{
    EXPECT_EQ(MenuAction("mnuE_New")->shortcut(), QKeySequence(QKeySequence::New));
    EXPECT_EQ(MenuAction("mnuE_Delete")->shortcut(), QKeySequence(QKeySequence::Delete));
    EXPECT_EQ(MenuAction("mnuF_Print")->shortcut(), QKeySequence(QKeySequence::Print));
    EXPECT_EQ(MenuAction("mnuH_HelpTopics")->shortcut(), QKeySequence(Qt::Key_F1));
    EXPECT_EQ(MenuAction("mnuY_Undo")->shortcut(), QKeySequence(QKeySequence::Undo));
}

/// A misspelt key or name of a drawing would leave a command without it.
TEST_F(CommandsTest, EachCommandHasItsKeyAndPicture)
{
    for (const WindowMenu& menu : WindowMenus())
        for (const WindowCommand& command : menu.commands) {
            if (!command.run)
                continue;
            const QAction& action = *MenuAction(command.name);
            EXPECT_FALSE(action.icon().isNull()) << command.name;
            EXPECT_EQ(
                ToUtf8(QKeySequence::listToString(action.shortcuts(), QKeySequence::PortableText)),
                command.key);
        }
    for (const WindowButton& button : WindowButtons()) {
        const QAction& action = *ToolbarWidget(window_).Action(button.key);
        EXPECT_FALSE(action.icon().isNull()) << button.key;
        EXPECT_EQ(ToUtf8(action.shortcut().toString(QKeySequence::PortableText)), button.shortcut);
    }
}

TEST_F(CommandsTest, TheRightButtonShowsTheEditMenuForItsRow)
{
    ClickNode("Checking");
    QWidget& view = *GridWidget(window_).viewport();
    const QPoint place = GridWidget(window_).Layout().CellRect(3, 2).center();

    QTest::mouseClick(&view, Qt::RightButton, Qt::NoModifier, place);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place, view.mapToGlobal(place));
    QApplication::sendEvent(&view, &asked);
    QTest::qWait(1);

    EXPECT_EQ(Grid().Row(), 3U);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->objectName(), QStringLiteral("mnuEdit"));
    menu->close();
}

}  // namespace
}  // namespace clb
