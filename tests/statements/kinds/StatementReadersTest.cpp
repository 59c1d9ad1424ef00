#include <gtest/gtest.h>

#include "statements/kinds/StatementReaders.h"

namespace clb {
namespace {

std::string KindOf(std::string_view text)
{
    return OpenStatement(text)->Kind();
}

TEST(StatementReaders, ChoosesByWhatTheFileHolds)
{
    EXPECT_EQ(KindOf("<OFX><STMTRS></STMTRS></OFX>"), "ofx");
    EXPECT_EQ(KindOf("<OFC><ACCTSTMT><STMTRS></STMTRS></ACCTSTMT></OFC>"), "ofx");
    EXPECT_EQ(KindOf("!Type:Bank\nD12/31/2023\nT1.00\n^\n"), "qif");
    EXPECT_EQ(KindOf("D12/31/2023\nT1.00\nPx\n^\n"), "qif");
    EXPECT_EQ(KindOf("Date,Description,Amount\n2023-12-31,Shop,-5.00\n2023-12-31,Inn,-6.00\n"),
              "csv");
    EXPECT_EQ(KindOf("<?xml version=\"1.0\"?><Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:"
                     "camt.053.001.02\"><BkToCstmrStmt><Stmt></Stmt></BkToCstmrStmt></Document>"),
              "camt");
    EXPECT_EQ(
        KindOf(":20:A\r\n:25:1/2\r\n:28C:1\r\n:60F:C240101EUR1,00\r\n:62F:C240101EUR1,00\r\n"),
        "mt940");
}

TEST(StatementReaders, RefusesWhatIsNoStatementWithASentence)
{
    for (const char* const text : {"", "%PDF-1.4", "<html></html>", "{\"a\": 1}"}) {
        try {
            (void)OpenStatement(text);
            FAIL() << text;
        } catch (const NotAStatement& error) {
            EXPECT_EQ(std::string(error.what()).substr(0, 12), "The file is ") << text;
        }
    }
}

}  // namespace
}  // namespace clb
