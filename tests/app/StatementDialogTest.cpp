// The dialog that asks what a statement file leaves open.
#include <gtest/gtest.h>

#include "app/frmStatement.h"
#include "controls/ControlVisitor.h"
#include "statements/csv/CsvReader.h"
#include "statements/qif/QifReader.h"
#include "tests/support/FakePorts.h"
#include "user/FormUser.h"

namespace clb {
namespace {

class StatementDialogTest : public testing::Test {
protected:
    /// Asks about a table; work works the dialog.
    std::optional<StatementAnswers> Ask(const std::string& text,
                                        const std::function<void(Form&)>& work,
                                        std::optional<StatementAnswers> remembered = {})
    {
        text_ = text;
        reader_ = ReadCsv(text_);
        return Ask(work, std::move(remembered));
    }
    std::optional<StatementAnswers> Ask(const std::function<void(Form&)>& work,
                                        std::optional<StatementAnswers> remembered = {})
    {
        host_.steps.push_back(work);
        frmStatement dialog("march.csv", *reader_, reader_->Open({}), {}, std::move(remembered));
        return dialog.ShowDialog(host_);
    }

    static void Accept(Form& form) { FormUser(form).Press("btnOK"); }
    static std::string Caption(Form& form, const char* label)
    {
        return As<Label>(form.Find(label))->Caption();
    }
    /// The items of a list with "|" between them, the chosen one with a star; "-" if there is no
    /// such list.
    static std::string Items(Form& form, const char* list)
    {
        const auto* const found = As<ListBox>(form.Find(list));
        if (!found)
            return "-";
        std::string items;
        for (std::size_t i = 0; i < found->Items().size(); ++i)
            items += (i > 0 ? "|" : "") +
                     std::string(static_cast<std::int32_t>(i) == found->Index() ? "*" : "") +
                     found->Items()[i].text;
        return items;
    }
    static std::string Rows(Form& form)
    {
        std::string rows;
        for (const RowList::Line& line : As<RowList>(form.Find("lstRows"))->Lines()) {
            for (const std::string& cell : line.row.cells)
                rows += cell + "|";
            rows += "\n";
        }
        return rows;
    }

    std::string text_;
    std::unique_ptr<IStatementReader> reader_;
    FakeModalHost host_;
};

constexpr const char* kOpenDates =
    "Date,Text,Amount\n03/04/2026,Shop,-1.00\n05/04/2026,Bar,-2.00\n";
constexpr const char* kOpenColumns = "2026-02-13,a,1.00,5.00\n2026-02-14,b,2.00,9.00\n";

TEST_F(StatementDialogTest, OnlyWhatIsOpenIsAskedAndTheReasonIsSaid)
{
    Ask(kOpenDates, [](Form& form) {
        EXPECT_EQ(form.Caption(), "Import march.csv");
        EXPECT_EQ(Caption(form, "lblFile"),
                  "march.csv leaves open which number of its dates is the day. All dates can be "
                  "read in several orders.");
        EXPECT_EQ(Items(form, "cmbDateOrder"), "*day, month, year|month, day, year");
        for (const char* list : {"cmbDecimal", "cmbSign", "cmbTruncated", "cmbDate", "cmbAmount"})
            EXPECT_EQ(Items(form, list), "-");
    });
}

TEST_F(StatementDialogTest, TheRowsFollowTheChoice)
{
    const auto answers = Ask(kOpenDates, [](Form& form) {
        EXPECT_EQ(Rows(form), "2|3 Apr 2026|-1.00|Shop||\n3|5 Apr 2026|-2.00|Bar||\n");
        FormUser(form).Choose("cmbDateOrder", "month, day, year");
        EXPECT_EQ(Rows(form), "2|4 Mar 2026|-1.00|Shop||\n3|4 May 2026|-2.00|Bar||\n");
        EXPECT_EQ(Caption(form, "lblLeftOut"), "2 rows can be read this way.");
        Accept(form);
    });

    ASSERT_TRUE(answers);
    EXPECT_EQ(answers->dateOrder, DateText::Order::MonthDayYear);
}

TEST_F(StatementDialogTest, EnterTakesWhatIsProposedAndEscapeNothing)
{
    const auto answers = Ask(kOpenDates, [](Form& form) { form.DefaultButton()->Press(); });

    ASSERT_TRUE(answers);
    EXPECT_EQ(answers->dateOrder, DateText::Order::DayMonthYear);
    EXPECT_FALSE(Ask(kOpenDates, [](Form& form) { form.CancelButton()->Press(); }));
}

TEST_F(StatementDialogTest, WhatWasRememberedIsChosen)
{
    StatementAnswers remembered;
    remembered.dateOrder = DateText::Order::MonthDayYear;

    Ask(
        kOpenDates,
        [](Form& form) {
            EXPECT_EQ(Items(form, "cmbDateOrder"), "day, month, year|*month, day, year");
        },
        remembered);
}

TEST_F(StatementDialogTest, WhatIsLeftOutIsShownFaded)
{
    const std::string rows = std::string(kOpenDates) + "06/04/2026,Pub,-3.00\n";
    Ask(rows + "05/04/2026,Late,soon\n", [](Form& form) {
        const auto& lines = As<RowList>(form.Find("lstRows"))->Lines();
        ASSERT_EQ(lines.size(), 4U);
        EXPECT_FALSE(lines[2].row.faded);
        EXPECT_TRUE(lines[3].row.faded);
        EXPECT_EQ(lines[3].row.cells[3], "left out: it has no amount that can be read exactly");
        EXPECT_EQ(Caption(form, "lblLeftOut"), "3 rows can be read this way, 1 line is left out.");
    });
}

TEST_F(StatementDialogTest, ColumnsAreChosenByNameAndSample)
{
    const auto answers = Ask(kOpenColumns, [](Form& form) {
        EXPECT_EQ(Items(form, "cmbDate"),
                  "*Column 1  \u2013  2026-02-13|Column 2  \u2013  a|Column 3  \u2013  1.00|"
                  "Column 4  \u2013  5.00");
        EXPECT_EQ(As<ListBox>(form.Find("cmbAmount"))->Text(), "Column 3  \u2013  1.00");
        FormUser(form).Choose("cmbAmount", "Column 4  \u2013  5.00");
        FormUser(form).Choose("cmbSign", "goes out");
        EXPECT_EQ(Rows(form), "1|13 Feb 2026|-5.00|a||\n2|14 Feb 2026|-9.00|b||\n");
        Accept(form);
    });

    ASSERT_TRUE(answers);
    EXPECT_TRUE(reader_->Open(*answers).empty());
    EXPECT_EQ(answers->columns, "date=#1,amount=#4,in=,out=,name=#2,text=,balance=");
    EXPECT_EQ(answers->inverted, true);
}

TEST_F(StatementDialogTest, AnAmountExcludesColumnsOfInAndOut)
{
    Ask(kOpenColumns, [](Form& form) {
        FormUser user(form);
        user.Choose("cmbIn", "Column 4  \u2013  5.00");
        EXPECT_EQ(As<ListBox>(form.Find("cmbAmount"))->Text(), "(none)");
        EXPECT_EQ(Items(form, "cmbSign"), "");
        user.Choose("cmbOut", "Column 3  \u2013  1.00");
        EXPECT_EQ(As<ListBox>(form.Find("cmbIn"))->Text(), "Column 4  \u2013  5.00");
        user.Choose("cmbAmount", "Column 3  \u2013  1.00");
        EXPECT_EQ(As<ListBox>(form.Find("cmbIn"))->Text(), "(none)");
        EXPECT_EQ(Items(form, "cmbSign"), "comes in|*goes out");
    });
}

TEST_F(StatementDialogTest, AChosenColumnIsNoDescriptionAnyMore)
{
    Ask("2026-02-13,a,1.00,5.00,x\n2026-02-14,b,2.00,9.00,y\n", [](Form& form) {
        FormUser user(form);
        user.Choose("cmbName", "Column 2  \u2013  a");
        user.Choose("cmbText", "Column 5  \u2013  x");
        user.Choose("cmbBalance", "Column 2  \u2013  a");
        EXPECT_EQ(As<ListBox>(form.Find("cmbName"))->Text(), "Column 5  \u2013  x");
        EXPECT_EQ(As<ListBox>(form.Find("cmbText"))->Text(), "(none)");
    });
}

TEST_F(StatementDialogTest, WithoutAnAmountNothingCanBeImported)
{
    Ask("Date,Text,Currency,Exchange rate\n2021-03-13,a,EUR,1.12\n", [](Form& form) {
        EXPECT_FALSE(form.Find("btnOK")->Enabled());
        EXPECT_EQ(Caption(form, "lblLeftOut"),
                  "Please choose the columns of the date and of the amount.");
        FormUser(form).Choose("cmbAmount", "Exchange rate  \u2013  1.12");
        EXPECT_TRUE(form.Find("btnOK")->Enabled());
    });
}

TEST_F(StatementDialogTest, NamesOfColumnsMayHoldAnything)
{
    const auto answers =
        Ask("\"When, exactly\",\"a=b+c\",\"1\",\"amount=4,\"\n"
            "2026-02-13,x,1.00,5.00\n2026-02-14,y,2.00,9.00\n",
            [](Form& form) {
                FormUser(form).Choose("cmbName", "a=b+c  \u2013  x");
                FormUser(form).Choose("cmbAmount", "amount=4,  \u2013  5.00");
                FormUser(form).Choose("cmbSign", "comes in");
                EXPECT_EQ(Rows(form), "2|13 Feb 2026|5.00|x||\n3|14 Feb 2026|9.00|y||\n");
                Accept(form);
            });

    ASSERT_TRUE(answers);
    EXPECT_TRUE(reader_->Open(*answers).empty());
}

TEST_F(StatementDialogTest, QuestionsThatTheColumnsBringUpComeWithThem)
{
    Ask("a,b,c,d\n2026-02-13,03/04/2026,1.00,5.00\n2026-02-14,05/04/2026,2.00,9.00\n",
        [](Form& form) {
            FormUser(form).Choose("cmbDate", "a  \u2013  2026-02-13");
            EXPECT_EQ(Items(form, "cmbDateOrder"), "");
            FormUser(form).Choose("cmbDate", "b  \u2013  03/04/2026");
            EXPECT_NE(Items(form, "cmbDateOrder"), "");
            EXPECT_TRUE(form.Find("cmbDateOrder")->Enabled());
            FormUser(form).Choose("cmbDate", "a  \u2013  2026-02-13");
            EXPECT_EQ(Items(form, "cmbDateOrder"), "");
        });
}

TEST_F(StatementDialogTest, RememberedColumnsAreChosen)
{
    StatementAnswers remembered;
    remembered.columns = "date=#1,amount=#4,in=,out=,name=#2,text=,balance=";
    remembered.inverted = true;

    const auto answers = Ask(kOpenColumns, Accept, remembered);

    ASSERT_TRUE(answers);
    EXPECT_EQ(answers->columns, remembered.columns);
    EXPECT_EQ(answers->inverted, true);
}

TEST_F(StatementDialogTest, ColumnsThatTheTableLacksAreNotChosen)
{
    StatementAnswers remembered;
    remembered.columns = "date=#9,amount=#4+#5,text";

    const auto answers = Ask(kOpenColumns, Accept, remembered);

    ASSERT_TRUE(answers);
    EXPECT_EQ(answers->columns, "date=#1,amount=#3,in=,out=,name=#2,text=,balance=");
}

TEST_F(StatementDialogTest, OfAFileThatBreaksOffNothingMayBeTaken)
{
    text_ = "!Type:Bank\nD13/02/2026\nT-1.00\nPShop\n^\nD14/02/2026\nT-2";
    reader_ = ReadQif(text_);

    EXPECT_TRUE(Ask([](Form& form) {
        EXPECT_EQ(Items(form, "cmbTruncated"), "*the whole rows before the break|nothing");
        Accept(form);
    }));
    EXPECT_FALSE(Ask([](Form& form) {
        FormUser(form).Choose("cmbTruncated", "nothing");
        EXPECT_EQ(Rows(form), "");
        EXPECT_EQ(Caption(form, "lblLeftOut"), "Nothing of the file is imported.");
        Accept(form);
    }));
}

}  // namespace
}  // namespace clb
