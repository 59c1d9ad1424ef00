// File > Import as a person's window has it: statements of every kind, several at once.
#include <gtest/gtest.h>

#include "controls/ControlVisitor.h"
#include "controls/ResultBar.h"
#include "controls/RowList.h"
#include "data/ViewColumns.h"
#include "tests/support/Books.h"
#include "tests/support/PressedResult.h"
#include "user/FormUser.h"

namespace clb {
namespace {

constexpr const char* kHeader = "Date,Description,Amount\n";

class ImportCommandTest : public testing::Test {
protected:
    ImportCommandTest()
    {
        books_.AddAccount("C1", "Bank", "Checking");
        books_.AddAccount("P1", "Cash", "Purse");
        Window().View().BuildTree();
        Window().Settle();
    }

    frmController& Window() { return books_.window; }
    ResultBar& Bar() { return books_.window.result; }
    std::string Csv(const std::string& name, const std::string& rows)
    {
        return books_.folder.Write(name, kHeader + rows);
    }
    /// Answers the dialog for the account: maps to the one with this description.
    void AnswerAccount(const std::string& description)
    {
        books_.modal.steps.emplace_back([description](Form& form) {
            FormUser user(form);
            EXPECT_TRUE(user.Option("optAccount(1)"));
            EXPECT_TRUE(user.Choose("cmbAccountID", description));
            user.Press("btnOK");
        });
    }
    void AnswerForm(const std::function<void(Form&)>& work) { books_.modal.steps.push_back(work); }
    /// Chooses the files in the dialog of File > Import.
    void Import(const std::vector<std::string>& files)
    {
        books_.files.answers.assign(files.begin(), files.end());
        Window().menus.Find("mnuF_Import")->Press();
        Window().Settle();
    }
    std::int64_t CountRows()
    {
        return std::stoll(books_.One("SELECT COUNT(*) FROM Trans WHERE AccountID <> ''"));
    }
    static std::string Lines(Form& form)
    {
        std::string text;
        for (const RowList::Line& line : As<RowList>(form.Find("lstLeftOut"))->Lines()) {
            text += line.IsHeading() ? "[" + line.heading + "]" : "";
            for (const std::string& cell : line.row.cells)
                text += cell + "|";
            text += "\n";
        }
        return text;
    }
    /// Descriptions of the marked rows of the register.
    std::string Marked()
    {
        std::string marked;
        for (std::size_t row = 1; row <= Window().Grid.Rows().Count(); ++row)
            if (Window().Grid.IsUnseen(row))
                marked += (marked.empty() ? "" : " ") +
                          Window().Grid.CellText(row, Register::Description);
        return marked;
    }
    std::string DetailsOf()
    {
        std::string lines;
        AnswerForm([&lines](Form& form) { lines = Lines(form); });
        PressResult(Bar(), "What was left out");
        return lines;
    }

    Books books_{false, true};
};

TEST_F(ImportCommandTest, TheFileDialogOffersEveryKindAndSeveralFiles)
{
    Import({});

    ASSERT_EQ(books_.files.questions.size(), 1U);
    const FileQuestion& asked = books_.files.questions[0];
    EXPECT_TRUE(asked.several);
    EXPECT_TRUE(asked.filter.starts_with("All statements|*.ofx;"));
    for (const char* kind :
         {"|OFX, QFX|", "|QIF|", "|CSV|", "|camt|", "|MT940/942|", "|All files|"})
        EXPECT_NE(asked.filter.find(kind), std::string::npos) << kind;
    EXPECT_FALSE(Bar().Shown());
}

TEST_F(ImportCommandTest, TheResultBarSaysWhatCameInAndTakesItBack)
{
    AnswerAccount("Checking");

    Import({Csv("march.csv", "2006-03-14,Shop,-1.50\n2006-03-15,Work,20.00\n")});

    EXPECT_EQ(Bar().Text(), "Checking: 2 added \u2013 March 2006");
    EXPECT_EQ(Captions(Bar()), "Show|Undo");
    EXPECT_EQ(CountRows(), 2);
    PressResult(Bar(), "Undo");
    Window().Settle();
    EXPECT_EQ(CountRows(), 0);
}

TEST_F(ImportCommandTest, TheWindowShowsAccountAndMonthOfTheLatestNewRow)
{
    AnswerAccount("Purse");

    Import({Csv("spring.csv",
                "2005-12-30,Inn,-3.00\n2006-04-02,Shop,-1.50\n2006-01-15,Work,20.00\n")});

    EXPECT_EQ(Bar().Text(), "Purse: 3 added \u2013 December 2005 to April 2006");
    const clsView& view = Window().View();
    EXPECT_EQ(view.AccountID(), "P1");
    EXPECT_EQ((Month{view.Year(), view.Period()}), (Month{2006, 4}));
    EXPECT_EQ(Window().TreeView.Node(Window().TreeView.Selected()).text, "Purse");
    EXPECT_EQ(Window().window.Caption(), "Purse - Corvane Ledgerbook");

    Window().Grid.MoveToRowKey(Null());
    PressResult(Bar(), "Show");
    EXPECT_EQ(Window().Grid.CellText(Window().Grid.Row(), Register::Description), "Shop");
}

TEST_F(ImportCommandTest, TheStatusBarSaysWhatCameInUntilTheBookChanges)
{
    AnswerAccount("Purse");
    Import({Csv("march.csv", "2006-03-14,Shop,-1.50\n2006-03-15,Work,20.00\n")});
    EXPECT_EQ(Window().notices.Text(), "Purse: 2 added \u2013 March 2006");

    Window().StepMonth(+1);
    Window().Settle();
    EXPECT_FALSE(Bar().Shown());
    EXPECT_EQ(Window().notices.Text(), "Purse: 2 added \u2013 March 2006");

    Window().menus.Find("mnuY_Undo")->Press();
    Window().Settle();
    EXPECT_EQ(Window().notices.Text(), "");
}

TEST_F(ImportCommandTest, NewRowsAreMarkedUntilTheyWereCurrentOrAreTakenBack)
{
    const std::string path = Csv("march.csv", "2006-03-14,Shop,-1.50\n2006-03-15,Work,20.00\n");
    AnswerAccount("Purse");
    Import({path});
    EXPECT_EQ(Marked(), "Work Shop");

    Window().menus.Find("mnuY_Undo")->Press();
    Window().Settle();
    books_.Execute(
        "INSERT INTO Trans (AccountID, PostDate, Description, Amount, [Year], Period, [Sequence]) "
        "VALUES ('P1', #3/16/2006#, 'By hand', 1, 2006, 3, 9)");
    Window().View().Refresh();
    EXPECT_EQ(Marked(), "");

    AnswerAccount("Purse");
    Import({path});
    EXPECT_EQ(Marked(), "Work Shop");
}

TEST_F(ImportCommandTest, TheTreeShowsTheAccountOfTheLatestRow)
{
    Window().View().BuildTree();
    AnswerAccount("Checking");
    Import({Csv("a.csv", "2006-03-14,Shop,-1.50\n2006-03-15,Work,20.00\n")});
    Window().window.Focus(Window().Grid);
    AnswerForm([](Form& form) {
        FormUser(form).Set("txtDescription", "Savings");
        FormUser(form).Press("btnOK");
    });
    AnswerAccount("Checking");

    Import({Csv("b.csv", "2006-03-01,Early,-1.50\n2006-03-02,Early,2.00\n"),
            Csv("c.csv", "2006-03-20,Late,-1.50\n2006-03-21,Late,2.00\n")});

    EXPECT_EQ(Window().View().AccountID(), "C1");
    EXPECT_EQ(Window().TreeView.Node(Window().TreeView.Selected()).text, "Checking");
}

TEST_F(ImportCommandTest, KnownRowsAreCounted)
{
    const std::string path = Csv("march.csv", "2006-03-14,Shop,-1.50\n2006-03-15,Work,20.00\n");
    AnswerAccount("Checking");
    Import({path});
    AnswerAccount("Checking");

    Import({path});

    EXPECT_EQ(Bar().Text(), "Checking: 0 added, 2 known");
    EXPECT_EQ(CountRows(), 2);
}

TEST_F(ImportCommandTest, EverythingLeftOutIsListedWithItsLine)
{
    AnswerAccount("Checking");

    Import({Csv("march.csv",
                "2006-03-14,Shop,-1.50\n2006-03-15,Work,soon\n2006-03-15,a,2.00\n"
                "2006-03-16,b,-3.00\n")});

    EXPECT_EQ(Bar().Text(), "Checking: 3 added; 1 left out \u2013 March 2006");
    EXPECT_EQ(Captions(Bar()), "Show|What was left out|Undo");
    EXPECT_EQ(DetailsOf(),
              "[march.csv  \u2013  Checking: 3 added]\n"
              "3|it has no amount that can be read exactly|2006-03-15,Work,soon|\n");
}

TEST_F(ImportCommandTest, SeveralFilesAreSeveralStepsAndOneSummary)
{
    const std::string first = Csv("a.csv", "2006-03-14,Shop,-1.50\n2006-03-13,Work,20.00\n");
    const std::string page = books_.folder.Write("page.html", "<html><body>Hi</body></html>");
    const std::string second = Csv("b.csv", "2006-03-15,Shop,-2.50\n2006-03-16,Work,21.00\n");
    AnswerAccount("Checking");
    AnswerAccount("Purse");

    Import({first, page, second, books_.folder.Path("gone.csv")});

    EXPECT_EQ(Bar().Text(),
              "4 files: Checking: 2 added; Purse: 2 added; 2 files not imported \u2013 March 2006");
    const std::string details = DetailsOf();
    EXPECT_NE(details.find("[page.html]\n|refused|"), std::string::npos) << details;
    EXPECT_NE(details.find("[gone.csv]\n|refused|File not found|"), std::string::npos) << details;
    EXPECT_EQ(Window().Steps().NextToUndo()->what, "Import of b.csv");
    Window().menus.Find("mnuY_Undo")->Press();
    EXPECT_EQ(CountRows(), 2);
}

TEST_F(ImportCommandTest, AFileThatIsNoStatementIsRefusedInAMessage)
{
    Import({books_.folder.Write("page.html", "<html><body>Hi</body></html>")});

    EXPECT_FALSE(Bar().Shown());
    ASSERT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_TRUE(books_.messages.boxes[0].text.starts_with("page.html\n"));
    EXPECT_EQ(books_.messages.boxes[0].style, box_style::Exclamation);
}

TEST_F(ImportCommandTest, WhatTheUserCancelsIsNotReported)
{
    Import({Csv("march.csv", "2006-03-14,Shop,-1.50\n2006-03-15,Work,20.00\n")});

    EXPECT_FALSE(Bar().Shown());
    EXPECT_TRUE(books_.messages.boxes.empty());
    EXPECT_EQ(CountRows(), 0);
    EXPECT_TRUE(Window().window.Enabled());
}

TEST_F(ImportCommandTest, AnAccountThatWasMadeIsTakenBackIfTheNextOneIsCancelled)
{
    const std::int32_t nodes = Window().TreeView.Count();
    AnswerForm([this](Form& form) {
        FormUser(form).Set("txtDescription", "Savings");
        FormUser(form).Press("btnOK");
        Window().SettleDialog();
    });
    AnswerForm([](Form& form) { FormUser(form).Press("btnCancel"); });

    Import({books_.folder.Write(
        "two.qif",
        "!Account\nNFirst\nTBank\n^\n!Type:Bank\nD3/14/2006\nT-1.50\nPShop\n^\n"
        "!Account\nNSecond\nTBank\n^\n!Type:Bank\nD3/15/2006\nT-2.50\nPShop\n^\n")});

    EXPECT_EQ(books_.modal.shown, 2);
    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Account"), "2");
    EXPECT_EQ(CountRows(), 0);
    EXPECT_EQ(Window().TreeView.Count(), nodes);
}

TEST_F(ImportCommandTest, TheDialogForTheAccountSaysWhichFileAsks)
{
    AnswerForm([](Form& form) {
        EXPECT_EQ(As<Label>(form.Find("Label1"))->Caption(),
                  "march.csv holds 2 transactions of March 2006, but does not say for which "
                  "account. What would you like to do?");
        EXPECT_EQ(As<ListBox>(form.Find("cmbAccountID"))->Enabled(), false);
        EXPECT_EQ(form.Focus(), form.Find("txtDescription"));
    });
    Import({Csv("march.csv", "2006-03-14,Shop,-1.50\n2006-03-15,Work,20.00\n")});

    AnswerForm([](Form& form) {
        EXPECT_EQ(As<Label>(form.Find("Label1"))->Caption(),
                  "a.ofx holds 1 transaction of March 2006 for the account 12-34 (EUR), which is "
                  "not known yet. What would you like to do?");
    });
    Import({books_.folder.Write(
        "a.ofx",
        "<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><CURDEF>EUR<BANKACCTFROM><ACCTID>12-34"
        "<ACCTTYPE>SAVINGS</BANKACCTFROM><BANKTRANLIST><STMTTRN><DTPOSTED>20060305"
        "<TRNAMT>-1<FITID>7<NAME>Shop</STMTTRN></BANKTRANLIST></STMTRS></STMTTRNRS>"
        "</BANKMSGSRSV1></OFX>")});
    EXPECT_EQ(books_.modal.shown, 2);
}

TEST_F(ImportCommandTest, AnAccountWhoseNumberEndsAlikeIsProposed)
{
    books_.AddAccount("4471-0392", "Bank", "Joint");
    AnswerForm([](Form& form) {
        EXPECT_TRUE(As<OptionButton>(form.Find("optAccount(1)"))->Value());
        EXPECT_EQ(As<ListBox>(form.Find("cmbAccountID"))->Text(), "Joint");
        EXPECT_EQ(form.Focus(), form.Find("cmbAccountID"));
    });
    Import({books_.folder.Write(
        "a.ofx",
        "<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><CURDEF>EUR<BANKACCTFROM><ACCTID>DE0210044710392"
        "</BANKACCTFROM><BANKTRANLIST><STMTTRN><DTPOSTED>20060305<TRNAMT>-1<FITID>7<NAME>Shop"
        "</STMTTRN></BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>")});
    EXPECT_EQ(books_.modal.shown, 1);
}

TEST_F(ImportCommandTest, AnswersAndAccountAreProposedForTheNextFileOfTheSameLayout)
{
    AnswerForm([](Form& form) {
        FormUser(form).Choose("cmbDateOrder", "day, month, year");
        FormUser(form).Press("btnOK");
    });
    AnswerAccount("Purse");
    Import({Csv("march.csv", "03/04/2006,Shop,-1.50\n05/04/2006,Work,20.00\n")});
    AnswerForm([](Form& form) {
        EXPECT_EQ(As<ListBox>(form.Find("cmbDateOrder"))->Text(), "day, month, year");
        FormUser(form).Press("btnOK");
    });
    AnswerForm([](Form& form) {
        EXPECT_TRUE(As<OptionButton>(form.Find("optAccount(1)"))->Value());
        EXPECT_EQ(As<ListBox>(form.Find("cmbAccountID"))->Text(), "Purse");
        FormUser(form).Press("btnOK");
    });

    Import({Csv("april.csv", "06/05/2006,Shop,-3.50\n07/05/2006,Work,30.00\n")});

    EXPECT_EQ(books_.modal.shown, 4);
    EXPECT_EQ(books_.Rows("SELECT PostDate FROM Trans WHERE AccountID = 'P1' ORDER BY PostDate"),
              (std::vector<std::string>{"2006-04-03", "2006-04-05", "2006-05-06", "2006-05-07"}));
}

TEST_F(ImportCommandTest, BalancesThatDoNotFitAreSaid)
{
    AnswerAccount("Checking");

    Import({books_.folder.Write("march.sta",
                                ":20:A\r\n:25:DE1\r\n:28C:1\r\n:60F:C060301EUR10,00\r\n"
                                ":61:0603020302D1,00NTRFNONREF\r\n:86:Shop\r\n"
                                ":62F:C060331EUR99,00\r\n-\r\n")});

    EXPECT_EQ(Bar().Text(), "Checking: 1 added; balances do not fit the rows \u2013 March 2006");
    EXPECT_NE(DetailsOf().find("|note|The rows of 'Checking' do not add up"), std::string::npos);
}

/// What was done in the dialog for the account used to end the step of the import, so that the rows
/// became a step without a name.
TEST_F(ImportCommandTest, AnAccountThatIsMadeBelongsToTheStepOfTheImport)
{
    AnswerForm([this](Form& form) {
        FormUser(form).Set("txtDescription", "Savings");
        FormUser(form).Press("btnOK");
        Window().SettleDialog();
    });

    Import({Csv("march.csv", "2006-03-14,Shop,-1.50\n2006-03-15,Work,20.00\n")});

    EXPECT_EQ(Bar().Text(), "Savings: 2 added \u2013 March 2006");
    EXPECT_EQ(Window().Steps().NextToUndo()->what, "Import of march.csv");
    PressResult(Bar(), "Undo");
    Window().Settle();
    EXPECT_EQ(CountRows(), 0);
    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Account"), "2");
}

TEST_F(ImportCommandTest, TheBarGoesWhenAnotherPlaceIsShown)
{
    AnswerAccount("Checking");
    Import({Csv("march.csv", "2006-03-14,Shop,-1.50\n2006-03-15,Work,20.00\n")});
    ASSERT_TRUE(Bar().Shown());

    Window().ChooseMonth(0);
    Window().Settle();

    EXPECT_FALSE(Bar().Shown());
}

}  // namespace
}  // namespace clb
