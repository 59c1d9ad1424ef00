// Other programs write while Update Quotes waits for the quote service.

#include "tests/stress/TwoPrograms.h"
#include "tests/support/HttpServer.h"

namespace clb {
namespace {

struct QuoteService {
    HttpServer server;
};

class QuotesMeanwhileTest : private QuoteService, public TwoPrograms {
protected:
    QuotesMeanwhileTest() : TwoPrograms({"--quote-service", server.Address()}) {}

    /// Adds a holding with the price 7. While the service works on its request, another program
    /// runs the statement.
    void Hold(const std::string& symbol, const std::string& meanwhile)
    {
        OtherSql("INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('" + symbol + "', 7)");
        const std::string line =
            "\"" + symbol +
            "\",12,\"3/3/2006\",\"4:00pm\",+0.25,\"+2.04%\",12.30,12.60,12.20,12.49,12.51,99\r\n";
        server.On("?s=" + symbol + "&",
                  [this, line, meanwhile](const HttpServer::Connection& connection) {
                      OtherSql(meanwhile);
                      answers::Ok(line)(connection);
                  });
    }
    std::string ServiceAddress() const { return server.Address(); }
    std::string Prices()
    {
        return Rows("SELECT StockSymbol, LastPrice FROM Investment ORDER BY StockSymbol");
    }
};

// If the update kept the book locked, the other programs would give up before it is answered.
TEST_F(QuotesMeanwhileTest, AnotherProgramWritesAtOnceDuringEachRequest)
{
    Hold("ACME", "UPDATE Trans SET Amount = -31 WHERE Sequence = 3");
    Hold("NEXT", "UPDATE Trans SET Amount = -21 WHERE Sequence = 2");
    Events();

    Menu("mnuT_UpdateQuotes");

    EXPECT_TRUE(EventsOf("box").empty());
    EXPECT_EQ(Stored(), "1:-10 2:-21 3:-31");
    EXPECT_EQ(Prices(), R"(["ACME","12"] ["NEXT","12"])");
}

TEST_F(QuotesMeanwhileTest, AHoldingThatWasDeletedMeanwhileIsLeftAlone)
{
    Hold("GONE", "DELETE FROM Investment WHERE StockSymbol = 'GONE'");
    Hold("NEXT", "SELECT Type FROM Account");
    Events();

    Menu("mnuT_UpdateQuotes");

    EXPECT_TRUE(EventsOf("box").empty());
    EXPECT_EQ(Prices(), R"(["NEXT","12"])");
}

TEST_F(QuotesMeanwhileTest, AHoldingThatTookThePlaceOfADeletedOneKeepsItsPrice)
{
    Hold("NEXT", "DELETE FROM Investment WHERE StockSymbol = 'GONE'");
    Hold("GONE",
         "UPDATE Investment SET StockSymbol = 'OTHER', LastPrice = 5 WHERE StockSymbol = 'GONE'");

    Menu("mnuT_UpdateQuotes");

    EXPECT_EQ(Prices(), R"(["NEXT","12"])");
}

TEST_F(QuotesMeanwhileTest, AHoldingWithAnotherSymbolMeanwhileKeepsItsPrice)
{
    Hold("OLD", "UPDATE Investment SET StockSymbol = 'RENAMED' WHERE StockSymbol = 'OLD'");
    Hold("WAS", "SELECT Type FROM Account");
    Events();

    Menu("mnuT_UpdateQuotes");

    EXPECT_TRUE(EventsOf("box").empty());
    EXPECT_EQ(Prices(), R"(["RENAMED","7"] ["WAS","12"])");
}

TEST_F(QuotesMeanwhileTest, OtherCellsOfAHoldingStayAsTheOtherProgramSetThem)
{
    Hold("ACME", "UPDATE Investment SET Quantity = 3, Total = 36 WHERE StockSymbol = 'ACME'");

    Menu("mnuT_UpdateQuotes");

    EXPECT_EQ(Rows("SELECT Quantity, Total, LastPrice FROM Investment"), R"([3.0,"36","12"])");
}

TEST_F(QuotesMeanwhileTest, AHoldingThatWasAddedMeanwhileWaitsForTheNextUpdate)
{
    Hold("ACME", "INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('NEW', 7)");

    Menu("mnuT_UpdateQuotes");

    EXPECT_EQ(Prices(), R"(["ACME","12"] ["NEW","7"])");
}

// Symptom: rows were matched by their place, so the old price shown was that of another holding, or
// none.
TEST_F(QuotesMeanwhileTest, TheCommandLineMatchesHoldingsThatCameAndWentMeanwhile)
{
    folder.Write("cvlb.ini", "[Settings]\r\nQuoteService=" + ServiceAddress() + "\r\n");
    Hold("GONE", "DELETE FROM Investment WHERE StockSymbol = 'GONE'");
    Hold("NEXT", "INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('NEW', 5)");

    const Json report = Json::parse(Other({"quotes", "--json"}));

    ASSERT_EQ(report["holdings"].size(), 2U);
    EXPECT_EQ(report["holdings"][0]["before"], "7");
    EXPECT_EQ(report["holdings"][0]["LastPrice"], "12");
    EXPECT_EQ(report["holdings"][1]["StockSymbol"], "NEW");
    EXPECT_EQ(report["holdings"][1]["before"], "5");
}

}  // namespace
}  // namespace clb
