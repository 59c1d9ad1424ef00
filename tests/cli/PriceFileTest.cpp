#include <gtest/gtest.h>

#include <sstream>

#include "base/RuntimeError.h"
#include "cli/PriceFile.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

std::vector<std::string> MistakesIn(const std::string& text)
{
    std::vector<std::string> mistakes;
    ReadPrices(text, mistakes);
    return mistakes;
}

class PriceFileTest : public testing::Test {
protected:
    void Write(const std::string& text) { folder_.Write("prices.csv", text); }
    std::string Path() { return folder_.Path("prices.csv"); }
    /// The error message of opening the file.
    std::string Refusal()
    {
        try {
            PriceFile(Path(), complaints_);
        } catch (const RuntimeError& error) {
            return error.what();
        }
        return "";
    }
    static std::string Price(PriceFile& file, const std::string& symbol)
    {
        const auto found = file.Find(symbol);
        return found ? found->price.ToText() : "none";
    }

    TempFolder folder_;
    std::ostringstream complaints_;
};

TEST_F(PriceFileTest, AHeadingBlankLinesAndQuotesAreAllowed)
{
    Write(
        "\xEF\xBB\xBFSymbol,Price,Previous close,Date\r\n\r\n\"ACME\" , \"1,012.50\",1000,"
        "2006-03-03\r\nXYZ,1,2,2006-03-03");
    PriceFile file(Path(), complaints_);

    EXPECT_EQ(Price(file, "ACME"), "1012.5");
    EXPECT_EQ(Price(file, "xyz"), "1");
    EXPECT_EQ(Price(file, "Symbol"), "none");
}

TEST_F(PriceFileTest, EachBadLineIsReportedWithItsNumber)
{
    EXPECT_EQ(MistakesIn("ACME,12.50,12.25,2006-03-03\n"
                         "B,12.50\n"
                         ",1,1,2006-03-03\n"
                         "C D,1,1,2006-03-03\n"
                         "E,soon,1,2006-03-03\n"
                         "F,-1,1,2006-03-03\n"
                         "G,1,,2006-03-03\n"
                         "H,1,1,3/3/2006\n"
                         "I,1e300,1,2006-03-03\n"
                         "acme,1,1,2006-03-03\n"
                         "symbol,price,previous close,date\n"),
              (std::vector<std::string>{
                  "line 2: there must be 4 columns (symbol, price, previous close, date), not 2",
                  "line 3: the symbol \"\" is empty or holds a blank or a comma",
                  "line 4: the symbol \"C D\" is empty or holds a blank or a comma",
                  "line 5: the price \"soon\" is not an amount",
                  "line 6: the price \"-1\" is not an amount",
                  "line 7: the previous close \"\" is not an amount",
                  "line 8: the date \"3/3/2006\" is not yyyy-mm-dd",
                  "line 9: the price \"1e300\" is not an amount",
                  "line 10: the symbol \"acme\" has a line already",
                  "line 11: the price \"price\" is not an amount"}));
}

TEST_F(PriceFileTest, AFileThatIsBadFromTheStartIsRefused)
{
    EXPECT_EQ(Refusal(), "Cannot read " + Path());
    Write("ACME\nXYZ\n");
    EXPECT_EQ(Refusal(),
              Path() +
                  ", line 1: there must be 4 columns (symbol, price, previous close, date), not "
                  "1\n" +
                  Path() +
                  ", line 2: there must be 4 columns (symbol, price, previous close, date), not 1");
    std::filesystem::remove(Path());
    folder_.Write("prices.csv/file", "");
    EXPECT_EQ(Refusal(), "Cannot read " + Path());
}

TEST_F(PriceFileTest, AChangedFileIsReadAgain)
{
    Write("ACME,12.50,12.25,2006-03-03\n");
    PriceFile file(Path(), complaints_);
    EXPECT_EQ(Price(file, "ACME"), "12.5");

    Write("ACME,13.50,12.25,2006-03-03\n");
    EXPECT_EQ(Price(file, "ACME"), "13.5");
    Write("");
    EXPECT_EQ(Price(file, "ACME"), "none");
    EXPECT_EQ(complaints_.str(), "");
}

TEST_F(PriceFileTest, ABadChangeIsReportedOnceAndTheOldPricesStay)
{
    Write("ACME,12.50,12.25,2006-03-03\n");
    PriceFile file(Path(), complaints_);
    Write("ACME,much,12.25,2006-03-03\n");

    EXPECT_EQ(Price(file, "ACME"), "12.5");
    EXPECT_EQ(Price(file, "ACME"), "12.5");
    EXPECT_EQ(
        complaints_.str(),
        Path() + ", line 1: the price \"much\" is not an amount\nThe old prices stay in use.\n");

    std::filesystem::remove(Path());
    EXPECT_EQ(Price(file, "ACME"), "12.5");
    EXPECT_TRUE(
        complaints_.str().ends_with("Cannot read " + Path() + "\nThe old prices stay in use.\n"));
}

TEST(QuoteLineTest, AKnownSymbolHasPriceDateAndChange)
{
    const auto line = [](const char* price, const char* previous) {
        return QuoteLine("acme", StockPrice{"ACME", Money::Parse(price), Money::Parse(previous),
                                            *Date::Of(2006, 3, 14)});
    };

    EXPECT_EQ(line("12.50", "12.25"),
              "\"ACME\",12.5,\"3/14/2006\",\"N/A\",+0.25,\"+2.04%\",N/A,N/A,N/A,N/A,N/A,N/A\r\n");
    EXPECT_EQ(line("9", "10"),
              "\"ACME\",9,\"3/14/2006\",\"N/A\",-1,\"-10.00%\",N/A,N/A,N/A,N/A,N/A,N/A\r\n");
    EXPECT_EQ(line("10", "10"),
              "\"ACME\",10,\"3/14/2006\",\"N/A\",0,\"+0.00%\",N/A,N/A,N/A,N/A,N/A,N/A\r\n");
    EXPECT_EQ(line("10", "0"),
              "\"ACME\",10,\"3/14/2006\",\"N/A\",+10,\"N/A\",N/A,N/A,N/A,N/A,N/A,N/A\r\n");
}

TEST(QuoteLineTest, AnUnknownSymbolHasTwelveFieldsToo)
{
    EXPECT_EQ(QuoteLine("NO,PE\"", std::nullopt),
              "\"NOPE\",0.00,\"N/A\",\"N/A\",N/A,\"N/A\",N/A,N/A,N/A,N/A,N/A,N/A\r\n");
}

}  // namespace
}  // namespace clb
