// The storage below the driven program runs out of memory. The program's own memory does not,
// because its JSON allocates in destructors.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/allocation/TriedRequest.h"
#include "tests/support/CheckingBook.h"

namespace clb {
namespace {

using testing::IsEmpty;

class DrivenAllocationTest : public testing::Test {
protected:
    std::vector<std::string> Try(std::vector<Json> made, Json request)
    {
        books_.Keep();
        const std::vector<Json> shown = {{{"do", "click"}, {"text", "Checking"}}};
        return TriedRequest(books_, shown, std::move(made), std::move(request)).Run();
    }

    BookFolder books_{CheckingBook()};
};

// Symptom: it was reported as "Invalid data" in the statement, and the rows before it were kept.
TEST_F(DrivenAllocationTest, InAnImport)
{
    const std::string file =
        books_.Write("march.ofx",
                     "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n<OFX>\r\n<ACCTID>C-1\r\n"
                     "<STMTTRN><DTPOSTED>20060305<TRNAMT>-7<FITID>1<NAME>Shop</STMTTRN>\r\n"
                     "<STMTTRN><DTPOSTED>20060405<TRNAMT>-8<FITID>2<NAME>Shop</STMTTRN>\r\n");
    EXPECT_THAT(
        Try({{{"do", "answer"}, {"file", file}}}, {{"do", "menu"}, {"item", "mnuF_Import"}}),
        IsEmpty());
}

TEST_F(DrivenAllocationTest, InSavingARow)
{
    EXPECT_THAT(Try({{{"do", "edit"}, {"row", 1}, {"col", 5}, {"text", "Fun"}}}, {{"do", "save"}}),
                IsEmpty());
}

TEST_F(DrivenAllocationTest, InAnUndo)
{
    books_.Command(
        "INSERT INTO Trans (Sequence, AccountID, PostDate, Amount, Year, Period) VALUES "
        "(2, 'C-1', #2006-03-04#, -5, 2006, 3)");
    EXPECT_THAT(Try({}, {{"do", "menu"}, {"item", "mnuY_Undo"}}), IsEmpty());
}

TEST_F(DrivenAllocationTest, InARedo)
{
    books_.Command("DELETE FROM Trans");
    books_.UndoCommand();
    EXPECT_THAT(Try({}, {{"do", "menu"}, {"item", "mnuY_Redo"}}), IsEmpty());
}

TEST_F(DrivenAllocationTest, InListingTheHistory)
{
    books_.Command("UPDATE Trans SET Category = 'Fun'");
    EXPECT_THAT(Try({}, {{"do", "history"}}), IsEmpty());
}

}  // namespace
}  // namespace clb
