// What the window shows after Undo and Redo.

#include "app/OtherPrograms.h"
#include "controls/ResultBar.h"
#include "data/ViewColumns.h"
#include "tests/app/HistoryBooks.h"
#include "tests/support/PressedResult.h"

namespace clb {
namespace {

class UndoTest : public HistoryBooks {
protected:
    /// Title of the window, month and the first two cells of the current row.
    std::string Shown()
    {
        const std::string caption = Window().window.Caption();
        std::string text = caption.substr(0, caption.find(" - "));
        text += " " + std::to_string(Window().View().Period()) + "/" +
                std::to_string(Window().View().Year());
        CVGrid& grid = Window().Grid;
        for (const std::int32_t column : {1, 2})
            text += "|" + (grid.Row() == 0 ? "" : grid.CellText(grid.Row(), column));
        return text;
    }
    /// As the window does it: what other programs have written is shown first.
    void PressInWindow(const std::string& item)
    {
        Window().Others().Follow();
        Press(item);
    }
    void UndoElsewhere()
    {
        Connection connection;
        connection.Open("Data Source=" + books_.folder.Path() + "/db/clb.mdb");
        History history(
            connection, [] { return *Date::Of(2006, 3, 20); }, "another one");
        history.Undo(1);
        connection.Settle();
    }
    std::string Bar() { return Window().result.Text(); }
    void PressBar()
    {
        Window().result.Press(0);
        Window().Settle();
    }
    void EditTailor()
    {
        Command("Edit Transaction",
                "UPDATE Trans SET Description = 'Suit' WHERE Description = 'Tailor'");
    }
};

TEST_F(UndoTest, ShowsTheTransactionInItsAccountAndMonth)
{
    EditTailor();
    Click("Budget");

    Press("mnuY_Undo");

    EXPECT_EQ(Shown(), "Checking 5/2006|2006-05-10|Tailor");
    EXPECT_EQ(Window().TreeView.Node(Window().TreeView.Selected()).text, "Checking");
}

TEST_F(UndoTest, ShowsWhereARowWasThatIsGoneAgain)
{
    Window().Steps().Begin("New Transaction");
    AddTransaction("C1", 5, "Cobbler");
    Window().Settle();
    Click("Net Worth");

    Press("mnuY_Undo");

    EXPECT_EQ(Shown().substr(0, 15), "Checking 5/2006");
    EXPECT_EQ(Window().Grid.Rows().Count(), 2U) << "the tailor and the new row";
}

TEST_F(UndoTest, KeepsThePlaceInAViewThatShowsTheRowAlready)
{
    Click("Checking");
    Window().Grid.MoveTo(2, Register::Amount);
    const std::string before = Shown();
    Window().Steps().Begin("New Transaction");
    AddTransaction("C1", 3, "Cobbler");
    Window().Settle();

    Press("mnuY_Undo");

    EXPECT_EQ(Shown(), before);
    EXPECT_EQ(Window().Grid.Col(), Register::Amount);
}

TEST_F(UndoTest, KeepsTheColumnOnTheWayToAnotherRow)
{
    Click("Checking");
    Window().StepMonth(2);
    Window().Grid.MoveTo(1, Register::Amount);
    EditTailor();

    Press("mnuY_Undo");

    EXPECT_EQ(Shown(), "Checking 5/2006|2006-05-10|Tailor");
    EXPECT_EQ(Window().Grid.Col(), Register::Amount);
}

TEST_F(UndoTest, ShowsABudgetLineInItsMonth)
{
    Command("Edit Budget Line", "UPDATE Budget SET Amount = 5 WHERE Period = 5");
    Click("Checking");

    Press("mnuY_Undo");

    EXPECT_EQ(Shown(), "Budget 5/2006|Food|300.00");
}

TEST_F(UndoTest, OpensTheGroupOfABudgetLineThatWasFolded)
{
    Command("Edit Budget Line", "UPDATE Budget SET Amount = 5 WHERE Period = 3");
    Click("Budget");
    for (std::size_t row = 1; row <= Window().Grid.Rows().Count(); ++row)
        if (Window().Grid.Rows().Kind(row) == GridRowKind::GroupHeading) {
            Window().Grid.Fold(row, true);
            break;
        }

    Press("mnuY_Undo");

    EXPECT_EQ(Shown(), "Budget 3/2006|Food|300.00");
}

TEST_F(UndoTest, ShowsAnAccountInTheListOfAllAccounts)
{
    Command("Delete Record", "DELETE FROM Account WHERE AccountID = 'S1'");
    Window().ReloadWindow();
    Click("Checking");

    Press("mnuY_Undo");

    EXPECT_EQ(Shown(), "Net Worth 3/2006|Savings|Bank");
    Click("Bank");
    Press("mnuY_Redo");
    EXPECT_EQ(Shown().substr(0, 11), "Bank 3/2006") << "the list of its type shows it as well";
    Press("mnuY_Undo");
    EXPECT_EQ(Shown(), "Bank 3/2006|Savings|S1");
}

TEST_F(UndoTest, AnAccountsBalanceDoesNotLeadAwayFromTheTransaction)
{
    Window().Steps().Begin("Edit Transaction");
    books_.Execute("UPDATE Account SET CurrentBalance = -9 WHERE AccountID = 'C1'");
    books_.Execute("UPDATE Trans SET Amount = -9 WHERE Description = 'Tailor'");
    Window().Settle();

    Press("mnuY_Undo");

    EXPECT_EQ(Shown(), "Checking 5/2006|2006-05-10|Tailor");
}

TEST_F(UndoTest, StaysWhereOneIsForRowsThatNoViewShows)
{
    Command("SQL", "CREATE TABLE CvExtra (Name TEXT(10))");
    Command("Remember", "INSERT INTO CvExtra (Name) VALUES ('x')");
    Click("Checking");
    Window().Grid.MoveTo(2, Register::Description);
    const std::string before = Shown();

    Press("mnuY_Undo");

    EXPECT_EQ(Shown(), before);
}

TEST_F(UndoTest, TheBarSaysWhatWasUndoneAndItsButtonBringsItBack)
{
    EXPECT_FALSE(Window().result.Shown());
    EditTailor();
    const std::int32_t height = Window().Grid.Place().height;

    Press("mnuY_Undo");

    EXPECT_EQ(Bar(), "Undone: Edit Transaction (1 row)");
    EXPECT_EQ(Captions(Window().result), "Redo");
    EXPECT_LT(Window().Grid.Place().height, height);
    PressBar();
    EXPECT_EQ(Bar(), "Redone: Edit Transaction (1 row)");
    EXPECT_EQ(Captions(Window().result), "Undo");
    EXPECT_EQ(Shown(), "Checking 5/2006|2006-05-10|Suit");
    Window().result.Close();
    EXPECT_EQ(Bar(), "");
    EXPECT_EQ(Window().Grid.Place().height, height);
}

TEST_F(UndoTest, TheBarOfSeveralStepsBringsBackAllOfThem)
{
    EditTailor();
    Command("Edit Transaction", "UPDATE Trans SET Amount = -1");
    Window().Results().Show(Window().Steps().Undo(2), true);
    Window().Settle();

    EXPECT_EQ(Bar(), "Undone: 2 steps (4 rows)");
    PressBar();
    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Amount = -1"), "3");
}

TEST_F(UndoTest, TheBarGoesWithTheNextChangeAndWithAnotherPlace)
{
    EditTailor();
    Press("mnuY_Undo");
    Command("Edit Transaction", "UPDATE Trans SET Amount = -1");
    EXPECT_EQ(Bar(), "");

    Press("mnuY_Undo");
    EXPECT_NE(Bar(), "");
    Press("mnuY_Show");
    EXPECT_NE(Bar(), "") << "the history was only looked at";
    Window().StepMonth(1);
    Window().Settle();
    EXPECT_EQ(Bar(), "");

    Press("mnuY_Redo");
    Click("Budget");
    EXPECT_EQ(Bar(), "");
}

TEST_F(UndoTest, TheBarGoesWhenAnotherProgramHasChangedTheBook)
{
    EditTailor();
    Press("mnuY_Undo");

    Elsewhere("Import", "UPDATE Trans SET Amount = -1 WHERE Description = 'Baker'");
    Window().Settle();

    EXPECT_EQ(Bar(), "");
}

TEST_F(UndoTest, CaptionsAndTheBarTellStepsOfAnotherProgramApart)
{
    EditTailor();
    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo Edit Transaction");
    Elsewhere("Import of a & b", "UPDATE Trans SET Amount = -1 WHERE Description = 'Baker'");
    Window().FollowHistory();

    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo Import of a && b (another program)");
    Press("mnuY_Undo");
    EXPECT_EQ(Bar(), "Undone: Import of a & b of another program (1 row)");
    EXPECT_EQ(Caption("mnuY_Redo"), "&Redo Import of a && b (another program)");
    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo Edit Transaction");
}

// Symptom: the caption named the user's own step, and the import of another program was undone.
TEST_F(UndoTest, TakesBackOnlyTheStepThatTheCaptionNames)
{
    EditTailor();
    Elsewhere("Import", "UPDATE Trans SET Amount = -1 WHERE Description = 'Baker'");

    PressInWindow("mnuY_Undo");

    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Amount = -1"), "1");
    EXPECT_EQ(Bar(),
              "Nothing was undone, because another program has changed the book meanwhile. Undo "
              "would now take back 'Import'.");
    EXPECT_EQ(Captions(Window().result), "Undo");
    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo Import (another program)");
    EXPECT_TRUE(books_.messages.boxes.empty());
    PressInWindow("mnuY_Undo");
    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Amount = -1"), "0");
    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Description = 'Suit'"), "1");
}

TEST_F(UndoTest, ItsBarOffersTheStepThatComesNextNow)
{
    EditTailor();
    Elsewhere("Import", "UPDATE Trans SET Amount = -1 WHERE Description = 'Baker'");
    PressInWindow("mnuY_Undo");

    PressBar();

    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Amount = -1"), "0");
    EXPECT_EQ(Bar(), "Undone: Import of another program (1 row)");
}

TEST_F(UndoTest, DoesNotGoOnToAnOlderStepIfAnotherProgramHasUndoneTheNamedOne)
{
    Command("Edit Transaction", "UPDATE Trans SET Amount = -1");
    EditTailor();
    UndoElsewhere();

    PressInWindow("mnuY_Undo");

    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Amount = -1"), "3");
    EXPECT_EQ(Bar(),
              "Nothing was undone, because another program has changed the book meanwhile. Undo "
              "would now take back 'Edit Transaction'.");
}

TEST_F(UndoTest, SaysThatNothingIsLeftToRedoAfterAnotherProgramsStep)
{
    EditTailor();
    Press("mnuY_Undo");
    Window().result.Close();
    Elsewhere("Import", "UPDATE Trans SET Amount = -1 WHERE Description = 'Baker'");

    PressInWindow("mnuY_Redo");

    EXPECT_EQ(Bar(),
              "Nothing was redone, because another program has changed the book meanwhile. There "
              "is nothing left to redo.");
    EXPECT_EQ(Captions(Window().result), "");
    EXPECT_FALSE(Window().menus.Find("mnuY_Redo")->Enabled());
}

// What the user has typed is saved and taken back, though the caption could not name it.
TEST_F(UndoTest, TakesBackTheTypedRowAfterAnotherProgramsStep)
{
    EditTailor();
    Click("Checking");
    Elsewhere("Import", "UPDATE Account SET Description = 'Nest' WHERE AccountID = 'S1'");
    Window().window.Focus(Window().Grid);
    Window().Grid.MoveTo(1, Register::Description);
    Window().Grid.BeginEdit(0);
    Window().Grid.EditText("Typed");

    PressInWindow("mnuY_Undo");

    EXPECT_EQ(Bar().substr(0, 25), "Undone: Edit Transaction ");
    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Description = 'Typed'"), "0");
    EXPECT_EQ(books_.One("SELECT Description FROM Account WHERE AccountID = 'S1'"), "Nest");
    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo Import (another program)");
}

TEST_F(UndoTest, CaptionsFollowOtherProgramsAfterEachAction)
{
    EditTailor();
    Elsewhere("Import", "UPDATE Trans SET Amount = -1 WHERE Description = 'Baker'");

    Window().Others().Follow();
    Window().Settle();

    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo Import (another program)");
}

TEST_F(UndoTest, StepsFromBeforeTheStartAreNotSaidToBeOfAnotherProgram)
{
    Elsewhere("Import", "UPDATE Trans SET Amount = -1 WHERE Description = 'Baker'");
    frmController again(books_.PortsOver(books_.folder.Path()), WindowMetrics());
    again.Load();

    EXPECT_EQ(again.menus.Find("mnuY_Undo")->Caption(), "&Undo Import");
}

TEST_F(UndoTest, WithoutStepsThereIsNothingToChoose)
{
    EXPECT_FALSE(Window().menus.Find("mnuY_Undo")->Enabled());
    EXPECT_FALSE(Window().menus.Find("mnuY_Redo")->Enabled());
    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo");
}

// Symptom: Undo was gray after a change of tables, and nothing said why.
TEST_F(UndoTest, TheCaptionSaysThatAChangeOfTablesEndedTheHistory)
{
    EditTailor();
    Command("SQL", "CREATE TABLE Extra (Name TEXT(10))");

    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo (not possible: tables were changed)");
    EXPECT_FALSE(Window().menus.Find("mnuY_Undo")->Enabled());
    EXPECT_EQ(Caption("mnuY_Redo"), "&Redo");

    Command("Edit Transaction", "UPDATE Trans SET Amount = -1");
    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo Edit Transaction");
    Press("mnuY_Undo");
    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo (not possible: tables were changed)");
}

TEST_F(UndoTest, SaysThatAnotherProgramHasChangedTables)
{
    EditTailor();
    Elsewhere("SQL", "CREATE TABLE Extra (Name TEXT(10))");

    PressInWindow("mnuY_Undo");

    EXPECT_EQ(Bar(),
              "Nothing was undone, because another program has changed the book meanwhile. There "
              "is nothing left to undo since tables were changed.");
}

TEST_F(UndoTest, ARefusalIsABoxAndNoResult)
{
    EditTailor();
    Raw("UPDATE Trans SET Description = 'Dress' WHERE Description = 'Suit'");

    Press("mnuY_Undo");

    ASSERT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_EQ(Bar(), "");
}

}  // namespace
}  // namespace clb
