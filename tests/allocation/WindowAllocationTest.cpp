// Memory runs out in the middle of a command of the window: in the models with all their behaviour,
// and in the events that run the user's actions.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "app/frmController.h"
#include "desktop/input/UserEvents.h"
#include "tests/allocation/Tries.h"
#include "tests/support/CheckingBook.h"
#include "tests/support/FakeOutside.h"
#include "user/FormUser.h"

namespace clb {
namespace {

using testing::IsEmpty;

/// The program with a book, and fakes for everything outside.
struct Window : FakeOutside {
    explicit Window(const std::string& folder)
        : controller(PortsOver(folder), WindowMetrics()), events(messages)
    {
        controller.Load();
        events.Attach([this] { controller.Settle(); }, [] {}, [this] { controller.Abandon(); });
    }

    frmController controller;
    UserEvents events;
};

class WindowAllocationTest : public testing::TestWithParam<Refusal> {
protected:
    WindowAllocationTest()
        : books_(CheckingBook(
              {"UPDATE Account SET CurrentBalance = -12.5",
               "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES "
               "(2006, 2, 'Food', 'Living', -100)",
               "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES "
               "(2006, 3, 'Rent', 'Home', -90)"}))
    {
    }

    /// Opens the program after the book is complete.
    frmController& Open()
    {
        books_.Keep();
        window_ = std::make_unique<Window>(books_.Path());
        return window_->controller;
    }
    void ClickOn(const std::string& text)
    {
        Tree& tree = window_->controller.TreeView;
        for (std::int32_t node = 1; node <= tree.Count(); ++node)
            if (tree.Node(node).text == text)
                return static_cast<void>(window_->controller.PressNode(node));
    }
    void Type(std::size_t row, std::int32_t column, const std::string& text)
    {
        GridComponent& grid = window_->controller.Grid;
        grid.MoveTo(row, column);
        grid.BeginEdit(0);
        grid.EditText(text);
        grid.EndEdit();
    }
    std::function<void()> Press(const char* item)
    {
        return [this, item] { window_->controller.menus.Find(item)->Press(); };
    }
    std::function<void()> Save()
    {
        return [this] { window_->controller.Grid.Update(); };
    }

    /// What the tree, the grid's stored rows and the totals line show.
    std::string Shown()
    {
        frmController& controller = window_->controller;
        std::string text = controller.txtTotal.Text() + "|" + controller.txtTotal2.Text();
        for (std::int32_t node = 1; node <= controller.TreeView.Count(); ++node)
            text += "\n" + controller.TreeView.Node(node).tag + controller.TreeView.Node(node).text;
        GridRows& rows = controller.Grid.Rows();
        for (std::size_t row = 1; row <= rows.Count(); ++row)
            for (std::int32_t column = 1; column <= controller.Grid.Columns().Count(); ++column)
                text += "|" + ToText(rows.Stored(row, column));
        return text;
    }

    std::vector<std::string> Try(const std::function<void()>& action, bool changes = true,
                                 std::int64_t stride = 1)
    {
        shown_.push_back(Shown());
        // If all later allocations fail, neighbouring tries end alike.
        Tries tries(books_, GetParam(), GetParam() == Refusal::One ? stride : 7);
        if (tries.Next()) {
            tries.Begin();
            const bool done = window_->events.Run(action);
            FailingAllocations::End();
            tries.End(tries.Undisturbed() ? UndisturbedTrouble(done) : Trouble(tries, done));
        }
        std::vector<std::string> problems = tries.Problems();
        if (tries.Failed() < 10 || tries.Changes() != changes)
            problems.push_back("the action did not do what it is for");
        return problems;
    }

private:
    std::string UndisturbedTrouble(bool done)
    {
        return done ? "" : "fails undisturbed: " + window_->messages.boxes.at(0).text;
    }
    std::string Trouble(const Tries& tries, bool done)
    {
        std::string wrong = tries.WrongInBook(done);
        if (!done && GetParam() == Refusal::One && !ReportsIt())
            wrong += " not told";
        if (!window_->controller.window.Enabled())
            wrong += " disabled";
        if (window_->pointer.code != pointer::Default)
            wrong += " busy";
        return wrong + NextCommand(tries, done);
    }
    [[nodiscard]] bool ReportsIt() const
    {
        const auto& boxes = window_->messages.boxes;
        return !boxes.empty() &&
               boxes.back().text ==
                   "There is not enough memory. Nothing of the last command was kept.";
    }
    /// After the next command at the latest, which succeeds, the window must show what the file
    /// holds.
    std::string NextCommand(const Tries& tries, bool done)
    {
        std::string wrong;
        if (!window_->events.Run([] {}))
            wrong += " the next event fails";
        if (!done && std::find(shown_.begin(), shown_.end(), Shown()) == shown_.end())
            wrong += " shown:\n" + Shown() + "\ninstead of\n" + shown_.back();
        if (!tries.LooksFurther())
            return wrong;
        const bool next = window_->events.Run([this] {
            window_->controller.Data().Execute("INSERT INTO Budget (Category) VALUES ('Next one')");
        });
        return next && books_.Holds("Next one") ? wrong : wrong + " the next command fails";
    }

protected:
    BookFolder books_;
    std::unique_ptr<Window> window_;

    std::vector<std::string> shown_;  // what may be shown after a command that was taken back
};

TEST_P(WindowAllocationTest, InAnOfxImport)
{
    const std::string file =
        books_.Write("march.ofx",
                     "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n<OFX>\r\n<ACCTID>C-1\r\n"
                     "<STMTTRN><DTPOSTED>20060305<TRNAMT>-7<FITID>1<NAME>Shop</STMTTRN>\r\n"
                     "<STMTTRN><DTPOSTED>20060405<TRNAMT>-8<FITID>2<NAME>Shop</STMTTRN>\r\n");
    Open();
    ClickOn("Checking");
    window_->files.answers = {file};
    EXPECT_THAT(Try(Press("mnuF_Import"), true, 2), IsEmpty());
}

TEST_P(WindowAllocationTest, InAQifImportIntoANewAccount)
{
    const std::string file =
        books_.Write("march.qif", "!Type:Bank\nD3/5/06\nT-7.00\nPShop\nMnote\n^\n");
    Open();
    window_->files.answers = {file};
    window_->modal.steps = {[](Form& form) {
        FormUser user(form);
        user.Option("optAccount(0)");
        user.Set("txtDescription", "Savings");
        user.Choose("cmbAccountType", "Bank");
        user.Press("btnOK");
    }};
    EXPECT_THAT(Try(Press("mnuF_Import"), true, 2), IsEmpty());
}

TEST_P(WindowAllocationTest, InTypingIntoARow)
{
    Open();
    ClickOn("Checking");
    EXPECT_THAT(Try([this] { Type(1, 2, "Somewhere else"); }, false), IsEmpty());
}

TEST_P(WindowAllocationTest, InSavingAChangedRow)
{
    Open();
    ClickOn("Checking");
    Type(1, 3, "-20");
    Type(1, 5, "Fun");
    EXPECT_THAT(Try(Save()), IsEmpty());
}

TEST_P(WindowAllocationTest, InSavingANewRow)
{
    Open();
    ClickOn("Checking");
    Type(2, 1, "2006-03-05");
    Type(2, 2, "Shop");
    Type(2, 3, "-3");
    EXPECT_THAT(Try(Save()), IsEmpty());
}

TEST_P(WindowAllocationTest, InSavingAnAccountUnderAnotherNumber)
{
    Open();
    Type(1, 3, "C-2");
    EXPECT_THAT(Try(Save()), IsEmpty());
}

TEST_P(WindowAllocationTest, InASplit)
{
    Open();
    ClickOn("Checking");
    window_->controller.Grid.BeginEdit(0);
    window_->controller.Grid.CancelEdit();
    window_->modal.steps = {[](Form& form) { FormUser(form).Press("btnOK"); }};
    EXPECT_THAT(Try(Press("mnuE_Split")), IsEmpty());
}

TEST_P(WindowAllocationTest, InAMoveToTheNextMonth)
{
    Open();
    ClickOn("Checking");
    window_->controller.Grid.BeginEdit(0);
    window_->controller.Grid.CancelEdit();
    EXPECT_THAT(Try(Press("mnuE_MoveNext")), IsEmpty());
}

TEST_P(WindowAllocationTest, InCopyingTheBudget)
{
    Open();
    ClickOn("Budget");
    EXPECT_THAT(Try(Press("mnuE_Copy"), true, 2), IsEmpty());
}

TEST_P(WindowAllocationTest, InDeletingAnAccount)
{
    Open();
    window_->controller.Grid.BeginEdit(0);
    window_->controller.Grid.CancelEdit();
    window_->messages.answers = {BoxAnswer::Yes};
    EXPECT_THAT(Try(Press("mnuE_Delete")), IsEmpty());
}

TEST_P(WindowAllocationTest, InTheOptions)
{
    Open();
    window_->modal.steps = {[](Form& form) {
        FormUser user(form);
        user.Check(1, false);
        user.Press("btnOK");
    }};
    EXPECT_THAT(Try(Press("mnuT_Options")), IsEmpty());
}

TEST_P(WindowAllocationTest, InShowingAnotherView)
{
    Open();
    ClickOn("Checking");
    shown_ = {Shown()};
    ClickOn("Budget");
    EXPECT_THAT(Try([this] { ClickOn("Checking"); }, false), IsEmpty());
}

TEST_P(WindowAllocationTest, InShowingTheHistory)
{
    books_.Command("UPDATE Trans SET Category = 'Fun'");
    Open();
    EXPECT_THAT(Try(Press("mnuY_Show"), false, 12), IsEmpty());
}

/// Without any memory left, an undo is only taken back when the next command begins: the storage
/// must prepare the query for it anew, because triggers were switched.
class UndoAllocationTest : public WindowAllocationTest {};

TEST_P(UndoAllocationTest, InAnUndo)
{
    books_.Command("UPDATE Trans SET Category = 'Fun'");
    Open();
    // The register of the row is shown before all is done.
    ClickOn("Checking");
    shown_ = {Shown()};
    ClickOn("Budget");
    EXPECT_THAT(Try(Press("mnuY_Undo"), true, 6), IsEmpty());
}

TEST_P(UndoAllocationTest, InARedo)
{
    books_.Command("DELETE FROM Trans");
    books_.UndoCommand();
    Open();
    // The register of the rows that go is shown before all is done.
    ClickOn("Checking");
    shown_ = {Shown()};
    ClickOn("Net Worth");
    EXPECT_THAT(Try(Press("mnuY_Redo"), true, 6), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Once, UndoAllocationTest, testing::Values(Refusal::One));
INSTANTIATE_TEST_SUITE_P(Once, WindowAllocationTest, testing::Values(Refusal::One));
INSTANTIATE_TEST_SUITE_P(ForGood, WindowAllocationTest, testing::Values(Refusal::All));

}  // namespace
}  // namespace clb
