// The dialog "History".

#include "controls/RowList.h"
#include "tests/app/HistoryBooks.h"

namespace clb {
namespace {

class HistoryDialogTest : public HistoryBooks {
protected:
    HistoryDialogTest()
    {
        clock().now = *Date::Of(2006, 3, 1, 8, 0, 0);
        Command("Edit Account", "UPDATE Account SET Description = 'Main' WHERE AccountID = 'C1'");
        clock().now = *Date::Of(2006, 3, 19, 23, 59, 0);
        Command("Edit Transaction", "UPDATE Trans SET Amount = -1234.5 WHERE [Sequence] = 1");
        clock().now = *Date::Of(2006, 3, 20, 9, 5, 0);
        Command("Delete Record", "DELETE FROM Trans WHERE [Sequence] = 2");
    }

    /// Works the open dialog.
    void Show(const std::function<void(Form&)>& work)
    {
        books_.modal.steps.push_back(work);
        Press("mnuY_Show");
    }
    static RowList& List(Form& form, const char* name)
    {
        return dynamic_cast<RowList&>(*form.Find(name));
    }
    static std::string Takes(Form& form)
    {
        return dynamic_cast<Label&>(*form.Find("lblTakes")).Caption();
    }
    static void PressButton(Form& form, const char* name)
    {
        dynamic_cast<Button&>(*form.Find(name)).Press();
    }
    /// Each line: headings in brackets, the chosen row with a star.
    static std::string Lines(const RowList& list)
    {
        std::string text;
        for (std::size_t line = 1; line <= list.Lines().size(); ++line) {
            const RowList::Line& shown = list.Lines()[line - 1];
            text += line == list.Chosen() ? "*" : "";
            if (shown.IsHeading())
                text += "[" + shown.heading + "]";
            for (const std::string& cell : shown.row.cells)
                text += cell + "|";
            text += "\n";
        }
        return text;
    }
};

TEST_F(HistoryDialogTest, StepsAreListedByDay)
{
    Show([](Form& form) {
        EXPECT_EQ(Lines(List(form, "lstSteps")),
                  "[Today, 2006-03-20]\n"
                  "*09:05|Delete Record|1||\n"
                  "[Yesterday, 2006-03-19]\n"
                  "23:59|Edit Transaction|1||\n"
                  "[2006-03-01]\n"
                  "08:00|Edit Account|1||\n");
        EXPECT_EQ(Takes(form), "Going back to before this takes back 1 step.");
    });
}

TEST_F(HistoryDialogTest, AStepShowsWhatItChangedInTheWordsOfTheViews)
{
    Show([](Form& form) {
        List(form, "lstSteps").Choose(4);
        EXPECT_EQ(Lines(List(form, "lstChanges")),
                  "[Changed: the transaction of 2006-03-10 'Baker']\n"
                  "Amount|-4.50|-1,234.50|\n");
        List(form, "lstSteps").Choose(2);
        EXPECT_EQ(List(form, "lstChanges").Lines().at(0).heading,
                  "Deleted: the transaction of 2006-03-10 'Grocer'");
    });
}

TEST_F(HistoryDialogTest, GoesBackAndForwardToAnyStep)
{
    Show([this](Form& form) {
        List(form, "lstSteps").Choose(4);
        EXPECT_EQ(Takes(form), "Going back to before this takes back 2 steps.");
        PressButton(form, "btnBack");
        EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Amount = -4.5"), "3");
        EXPECT_EQ(Lines(List(form, "lstSteps")),
                  "[Today, 2006-03-20]\n"
                  "09:05|Delete Record|1|undone|\n"
                  "[Yesterday, 2006-03-19]\n"
                  "*23:59|Edit Transaction|1|undone|\n"
                  "[2006-03-01]\n"
                  "08:00|Edit Account|1||\n");
        EXPECT_TRUE(List(form, "lstSteps").Lines()[1].row.faded);
        EXPECT_FALSE(form.Find("btnBack")->Enabled());
        List(form, "lstSteps").Choose(2);
        EXPECT_EQ(Takes(form), "Going forward to after this brings back 2 steps.");
        PressButton(form, "btnForward");
        EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans"), "2");
    });
    EXPECT_EQ(Caption("mnuY_Undo"), "&Undo Delete Record");
}

TEST_F(HistoryDialogTest, TheFilterFindsCommandsAndDays)
{
    Show([](Form& form) {
        auto& filter = dynamic_cast<TextBox&>(*form.Find("txtFilter"));
        filter.Text("yesterday");
        EXPECT_EQ(Lines(List(form, "lstSteps")),
                  "[Yesterday, 2006-03-19]\n*23:59|Edit Transaction|1||\n");
        filter.Text("account");
        EXPECT_EQ(List(form, "lstSteps").Lines().size(), 2U);
        filter.Text("nothing like it");
        EXPECT_EQ(List(form, "lstSteps").Lines().size(), 0U);
        EXPECT_EQ(Takes(form), "No step matches.");
        EXPECT_FALSE(form.Find("btnBack")->Enabled());
        filter.Text("");
        EXPECT_EQ(List(form, "lstSteps").Lines().size(), 6U);
    });
}

TEST_F(HistoryDialogTest, ADamagedRecordIsReportedBelowTheLists)
{
    Raw("UPDATE CvChange SET Data = x'FFFFFFFF' WHERE Step = (SELECT max(Step) FROM CvStep)");
    Show([](Form& form) {
        EXPECT_EQ(Takes(form), "The history's step 3 ('Delete Record') is damaged.");
        EXPECT_EQ(List(form, "lstChanges").Lines().size(), 0U);
        List(form, "lstSteps").Choose(6);
        EXPECT_TRUE(form.Find("btnBack")->Enabled());
    });
    EXPECT_TRUE(books_.messages.boxes.empty());
}

TEST_F(HistoryDialogTest, ARefusedStepLeavesTheListAsItWas)
{
    Raw("UPDATE Account SET Description = 'Other' WHERE AccountID = 'C1'");
    Show([this](Form& form) {
        List(form, "lstSteps").Choose(6);
        PressButton(form, "btnBack");
        ASSERT_EQ(books_.messages.boxes.size(), 1U);
        EXPECT_EQ(books_.messages.boxes[0].text.find("'Edit Account' cannot be undone: "), 0U);
        EXPECT_EQ(Lines(List(form, "lstSteps")),
                  "[Today, 2006-03-20]\n"
                  "09:05|Delete Record|1||\n"
                  "[Yesterday, 2006-03-19]\n"
                  "23:59|Edit Transaction|1||\n"
                  "[2006-03-01]\n"
                  "*08:00|Edit Account|1||\n");
    });
    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans"), "2");
}

TEST_F(HistoryDialogTest, StepsThatAnotherProgramMadeMeanwhileAreNotTakenBackUnannounced)
{
    Show([this](Form& form) {
        List(form, "lstSteps").Choose(4);
        Elsewhere("Import", "UPDATE Account SET Description = 'Nest' WHERE AccountID = 'S1'");
        PressButton(form, "btnBack");
        EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans"), "2");
        EXPECT_EQ(Takes(form),
                  "Another program has changed the book meanwhile. Going back to before this takes "
                  "back 3 steps.");
        PressButton(form, "btnBack");
        EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans"), "3");
    });
}

TEST_F(HistoryDialogTest, SaysThatAChangeOfTablesEndedTheHistory)
{
    Command("SQL", "CREATE TABLE Extra (Name TEXT(10))");
    Show([](Form& form) {
        EXPECT_EQ(Lines(List(form, "lstSteps")),
                  "[Tables were changed on 2006-03-20.]\n"
                  "[Earlier steps cannot be undone.]\n");
        EXPECT_EQ(Takes(form), "There is nothing to undo since tables were changed.");
    });
    Command("Edit Account", "UPDATE Account SET Description = 'Main' WHERE AccountID = 'S1'");
    Show([](Form& form) {
        EXPECT_EQ(Lines(List(form, "lstSteps")),
                  "[Today, 2006-03-20]\n"
                  "*09:05|Edit Account|1||\n"
                  "[Tables were changed on 2006-03-20.]\n"
                  "[Earlier steps cannot be undone.]\n");
    });
}

}  // namespace
}  // namespace clb
