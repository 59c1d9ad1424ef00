// Memory runs out in the middle of a command of the driven program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/allocation/TriedRequest.h"

namespace clb {
namespace {

using testing::IsEmpty;

class AllocationTest : public testing::TestWithParam<Refusal> {
protected:
    AllocationTest()
        : books_({"INSERT INTO Account (AccountID, Description, Type) VALUES ('C-1', 'Checking', "
                  "'Bank')",
                  "INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, CheckID, "
                  "Category, PayeeName, Year, Period, FITID) VALUES (1, 'C-1', #2006-03-04#, "
                  "'Deli', -12.5, '', 'Food', '', 2006, 3, 'a')",
                  "UPDATE Account SET CurrentBalance = -12.5",
                  "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES "
                  "(2006, 2, 'Food', 'Living', -100)",
                  "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES "
                  "(2006, 3, 'Food', 'Living', -90)"})
    {
    }

    std::vector<std::string> Try(std::vector<Json> shown, std::vector<Json> made, Json request)
    {
        books_.Keep();
        return TriedRequest(books_, std::move(shown), std::move(made), std::move(request))
            .Run(GetParam());
    }
    static Json Press(const char* item) { return {{"do", "menu"}, {"item", item}}; }
    static std::vector<Json> Click(const char* node) { return {{{"do", "click"}, {"text", node}}}; }
    static Json Edit(const Json& row, int column, const char* text)
    {
        return {{"do", "edit"}, {"row", row}, {"col", column}, {"text", text}};
    }
    static Json Move(int row, int column)
    {
        return {{"do", "move"}, {"row", row}, {"col", column}};
    }
    static Json AnswerFile(const std::string& path) { return {{"do", "answer"}, {"file", path}}; }

    BookFolder books_;
};

TEST_P(AllocationTest, InAnOfxImport)
{
    const std::string file =
        books_.Write("march.ofx",
                     "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n<OFX>\r\n<ACCTID>C-1\r\n"
                     "<STMTTRN><DTPOSTED>20060305<TRNAMT>-7<FITID>1<NAME>Shop</STMTTRN>\r\n"
                     "<STMTTRN><DTPOSTED>20060405<TRNAMT>-8<FITID>2<NAME>Shop</STMTTRN>\r\n");
    EXPECT_THAT(Try(Click("Checking"), {AnswerFile(file)}, Press("mnuF_Import")), IsEmpty());
}

TEST_P(AllocationTest, InAQifImport)
{
    const std::string file =
        books_.Write("march.qif", "!Type:Bank\r\nD3/5/06\r\nT-7.00\r\nPShop\r\nMnote\r\n^\r\n");
    const Json account{{"do", "answer"},
                       {"form", "frmSelectAccount"},
                       {"steps", Json::array({{{"option", "optAccount(1)"}},
                                              {{"choose", "cmbAccountID"}, {"to", "Checking"}},
                                              {{"press", "btnOK"}}})}};
    EXPECT_THAT(Try(Click("Checking"), {AnswerFile(file), account}, Press("mnuF_Import")),
                IsEmpty());
}

TEST_P(AllocationTest, InSavingAChangedRow)
{
    EXPECT_THAT(Try(Click("Checking"), {Edit(1, 3, "-20"), Edit(1, 5, "Fun")}, {{"do", "save"}}),
                IsEmpty());
}

TEST_P(AllocationTest, InTypingIntoARow)
{
    EXPECT_THAT(Try(Click("Checking"), {}, Edit(1, 2, "Somewhere else")), IsEmpty());
}

TEST_P(AllocationTest, InSavingANewRow)
{
    EXPECT_THAT(Try(Click("Checking"),
                    {Edit("new", 1, "2006-03-05"), Edit("new", 2, "Shop"), Edit("new", 3, "-3")},
                    {{"do", "save"}}),
                IsEmpty());
}

TEST_P(AllocationTest, InSavingAnAccount)
{
    EXPECT_THAT(Try(Click("Net Worth"), {Edit(1, 1, "Giro")}, {{"do", "save"}}), IsEmpty());
}

TEST_P(AllocationTest, InASplit)
{
    const Json amount{
        {"do", "answer"}, {"form", "frmSplit"}, {"steps", Json::array({{{"press", "btnOK"}}})}};
    EXPECT_THAT(Try(Click("Checking"), {Move(1, 2), amount}, Press("mnuE_Split")), IsEmpty());
}

TEST_P(AllocationTest, InAMoveToTheNextMonth)
{
    EXPECT_THAT(Try(Click("Checking"), {Move(1, 2)}, Press("mnuE_MoveNext")), IsEmpty());
}

TEST_P(AllocationTest, InCopyingTheBudget)
{
    EXPECT_THAT(Try(Click("Budget"), {}, Press("mnuE_Copy")), IsEmpty());
}

TEST_P(AllocationTest, InDeletingAnAccount)
{
    const Json yes{{"do", "answer"}, {"box", "Yes"}};
    EXPECT_THAT(Try(Click("Net Worth"), {Move(1, 1), yes}, Press("mnuE_Delete")), IsEmpty());
}

TEST_P(AllocationTest, InAnExport)
{
    EXPECT_THAT(Try(Click("Checking"), {AnswerFile(books_.Path("out.ofx"))}, Press("mnuF_Export")),
                IsEmpty());
}

TEST_P(AllocationTest, InShowingAnotherView)
{
    EXPECT_THAT(Try(Click("Budget"), {}, {{"do", "click"}, {"text", "Checking"}}), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Once, AllocationTest, testing::Values(Refusal::One));
INSTANTIATE_TEST_SUITE_P(ForGood, AllocationTest, testing::Values(Refusal::All));

}  // namespace
}  // namespace clb
