// Quotes over real HTTP: holdings, the log and the message after each kind of answer.

#include <cstdlib>

#include "tests/scenarios/Scenario.h"
#include "tests/support/HttpServer.h"

namespace clb {
namespace {

constexpr const char* kRest = "12.30,12.60,12.20,12.49,12.51,1234567\r\n";

/// An answer of twelve fields.
std::string Line(const std::string& symbol, const std::string& price)
{
    return "\"" + symbol + "\"," + price + ",\"3/3/2006\",\"4:00pm\",+0.25,\"+2.04%\"," + kRest;
}

class QuotesTest : public Scenario {
protected:
    QuotesTest() { options = {"--quote-service", server.Address()}; }

    /// Adds a holding with the price 7.25; its symbol is given as in SQL, without the quotes.
    void Hold(const std::string& symbol)
    {
        Sql("INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('" + symbol + "', 7.25)");
    }
    void Answer(const std::string& symbol, HttpServer::Answer answer)
    {
        server.On("?s=" + symbol + "&f=sl1d1t1c1p2ohgbav&e=.csv ", std::move(answer));
    }
    void Update() { Do({{"do", "menu"}, {"item", "mnuT_UpdateQuotes"}}); }
    std::string Prices() { return Rows("SELECT LastPrice FROM Investment"); }
    std::string Url(const std::string& symbol)
    {
        return server.Address() + "/d/quotes.csv?s=" + symbol + "&f=sl1d1t1c1p2ohgbav&e=.csv";
    }
    std::vector<std::string> Requested()
    {
        std::vector<std::string> urls;
        for (const Json& event : EventsOf("request"))
            urls.push_back(event["url"]);
        return urls;
    }
    /// The events of an update that fails, in order.
    void ExpectFailure()
    {
        std::string logged;
        for (const Json& event : Events())
            if (event["event"] != "request")
                logged += ToLine(event) + "\n";
        EXPECT_EQ(logged, R"({"event":"status","text":"Updating quotes..."})"
                          "\n"
                          R"({"event":"pointer","value":11})"
                          "\n"
                          R"({"event":"pointer","value":0})"
                          "\n"
                          R"({"event":"status","text":"Select an item to work with."})"
                          "\n"
                          R"({"event":"box","text":"Unable to update quotes.","style":48,)"
                          R"("title":"Corvane Ledgerbook","answer":"OK","unanswered":true})"
                          "\n");
        EXPECT_EQ(Window()["status"], "Select an item to work with.");
        EXPECT_EQ(Window()["pointer"], 0);
    }

    HttpServer server;
};

TEST_F(QuotesTest, EachHoldingIsAskedForOnceAndGetsItsPrice)
{
    Hold("ACME");
    Hold("XYZ");
    Answer("ACME", answers::Ok(Line("ACME", "12.50")));
    Answer("XYZ", answers::Ok(Line("XYZ", "0.1234")));
    Events();

    Update();

    EXPECT_EQ(Prices(), R"(["12.5"] ["0.1234"])");
    std::string logged;
    for (const Json& event : Events())
        logged += ToLine(event) + "\n";
    EXPECT_EQ(logged, R"({"event":"status","text":"Updating quotes..."})"
                      "\n"
                      R"({"event":"pointer","value":11})"
                      "\n"
                      R"({"event":"request","url":")" +
                          Url("ACME") + R"("})" + "\n" + R"({"event":"request","url":")" +
                          Url("XYZ") +
                          R"("})"
                          "\n"
                          R"({"event":"pointer","value":0})"
                          "\n"
                          R"({"event":"status","text":"Select an item to work with."})"
                          "\n");
    EXPECT_EQ(
        server.FirstLines(),
        (std::vector<std::string>{"GET /d/quotes.csv?s=ACME&f=sl1d1t1c1p2ohgbav&e=.csv HTTP/1.1",
                                  "GET /d/quotes.csv?s=XYZ&f=sl1d1t1c1p2ohgbav&e=.csv HTTP/1.1"}));
    EXPECT_NE(server.Heads()[0].find("\r\nUser-Agent: Corvane Ledgerbook\r\n"), std::string::npos);
}

TEST_F(QuotesTest, WithoutHoldingsNothingIsAsked)
{
    Events();

    Update();

    EXPECT_TRUE(Requested().empty());
    EXPECT_TRUE(server.Heads().empty());
}

TEST_F(QuotesTest, TheShownRowsWaitForTheNextRefresh)
{
    AddAccount("I-1", "Investment", "Fund");
    Hold("ACME");
    Sql("UPDATE Investment SET AccountID = 'I-1', Quantity = 1");
    ShowAll();
    Click("Fund");
    Answer("ACME", answers::Ok(Line("ACME", "12.50")));
    const Json before = Grid();
    Events();

    Update();

    EXPECT_TRUE(EventsOf("refresh").empty());
    EXPECT_EQ(Grid(), before);
    Call("Refresh");
    EXPECT_NE(ToLine(Grid()["rows"]).find("\"12.5\""), std::string::npos);
}

TEST_F(QuotesTest, ASymbolThatMakesAnInvalidAddressIsSkipped)
{
    for (const char* symbol : {"A B", "A\rB", "A\nB", "A\r\nX-More: 1", "A\tB"})
        Hold(symbol);
    Hold("NEXT");
    Answer("NEXT", answers::Ok(Line("NEXT", "99")));
    Events();

    Update();

    EXPECT_EQ(Prices(), R"(["7.25"] ["7.25"] ["7.25"] ["7.25"] ["7.25"] ["99"])");
    const Json events = Events();
    EXPECT_EQ(ToLine(events[2]), R"({"event":"request","url":")" + Url("NEXT") + R"("})");
    EXPECT_EQ(events.size(), 5U) << ToLine(events);
    EXPECT_EQ(server.Heads().size(), 1U);
}

TEST_F(QuotesTest, OtherSymbolsAreInTheAddressUnchanged)
{
    for (const char* symbol : {"^DJI", "A&B", "A%B", "A%20B", "A+B", "A#B", "O''K", "\xC3\x84"})
        Hold(symbol);
    Events();

    Update();

    EXPECT_EQ(Requested(),
              (std::vector<std::string>{Url("^DJI"), Url("A&B"), Url("A%B"), Url("A%20B"),
                                        Url("A+B"), Url("A#B"), Url("O'K"), Url("\xC3\x84")}));
    const auto line = [](const std::string& symbol) {
        return "GET /d/quotes.csv?s=" + symbol + "&f=sl1d1t1c1p2ohgbav&e=.csv HTTP/1.1";
    };
    EXPECT_EQ(server.FirstLines(),
              (std::vector<std::string>{line("^DJI"), line("A&B"), line("A%B"), line("A%20B"),
                                        line("A+B"), "GET /d/quotes.csv?s=A HTTP/1.1", line("O'K"),
                                        line("\xC3\x84")}));
}

TEST_F(QuotesTest, AFailureInTheMiddleKeepsWhatCameBeforeAndEndsTheCommand)
{
    for (const char* symbol : {"ONE", "TWO", "THREE"})
        Hold(symbol);
    Answer("ONE", answers::Ok(Line("ONE", "12.50")));
    Answer("TWO", answers::Bytes(""));
    Answer("THREE", answers::Ok(Line("THREE", "99")));
    Events();

    Update();

    ExpectFailure();
    EXPECT_EQ(Prices(), R"(["12.5"] ["7.25"] ["7.25"])");
    EXPECT_EQ(server.Heads().size(), 2U);
}

TEST_F(QuotesTest, WithoutAServerTheUpdateFails)
{
    options[1] = "http://127.0.0.1:" + std::to_string(HttpServer::FreePort());
    Hold("ACME");
    Events();

    Update();

    ExpectFailure();
    EXPECT_EQ(Prices(), R"(["7.25"])");
}

TEST_F(QuotesTest, TheSettingsFileNamesTheService)
{
    options.clear();
    folder.Write("cvlb.ini", "[Settings]\r\nQuoteService=" + server.Address() + "/\r\n");
    Hold("ACME");
    Answer("ACME", answers::Ok(Line("ACME", "12.50")));
    Events();

    Update();

    EXPECT_EQ(Requested(), std::vector<std::string>{Url("ACME")});
    EXPECT_EQ(Prices(), R"(["12.5"])");
}

TEST_F(QuotesTest, TheOptionWinsOverTheSettingsFile)
{
    folder.Write("cvlb.ini", "[Settings]\r\nQuoteService=http://127.0.0.1:1\r\n");
    Hold("ACME");
    Answer("ACME", answers::Ok(Line("ACME", "12.50")));

    Update();

    EXPECT_EQ(Prices(), R"(["12.5"])");
}

TEST_F(QuotesTest, AServiceGivenByOptionIsReachedWithoutTheProxy)
{
    // Another name of this machine. A proxy would be used for it.
    options[1] = "http://0.0.0.0:" + std::to_string(server.Port());
    const std::string nobody = "http://127.0.0.1:" + std::to_string(HttpServer::FreePort());
    setenv("http_proxy", nobody.c_str(), 1);
    Hold("ACME");
    unsetenv("http_proxy");
    Answer("ACME", answers::Ok(Line("ACME", "12.50")));

    Update();

    EXPECT_EQ(Prices(), R"(["12.5"])");
}

TEST_F(QuotesTest, ACallGivesTheTwelveProperties)
{
    Answer("acme", answers::Ok(Line("ACME", "12.50")));
    Events();

    EXPECT_EQ(ToLine(Call("Quote", {"acme"})),
              R"({"Symbol":"ACME","Quote":"12.50","LastTradeDate":"3/3/2006",)"
              R"("LastTradeTime":"4:00pm","Change":"+0.25","PercentageChange":"+2.04%",)"
              R"("Opening":"12.30","DayHigh":"12.60","DayLow":"12.20","Bid":"12.49",)"
              R"("Ask":"12.51","Volume":"1,234,567"})");
    EXPECT_EQ(Requested(), std::vector<std::string>{Url("acme")});
}

TEST_F(QuotesTest, ACallWithoutAQuoteGivesTheClearedState)
{
    const char* const cleared =
        R"("Quote":"0.00","LastTradeDate":"N/A","LastTradeTime":"N/A","Change":"N/A",)"
        R"("PercentageChange":"N/A","Opening":"N/A","DayHigh":"N/A","DayLow":"N/A",)"
        R"("Bid":"N/A","Ask":"N/A","Volume":"N/A"})";

    EXPECT_EQ(ToLine(Call("Quote", {"NONE"})), R"({"Symbol":"NONE",)" + std::string(cleared));
    EXPECT_EQ(ToLine(Call("Quote", {"A B"})), R"({"Symbol":"A B",)" + std::string(cleared));
}

TEST_F(QuotesTest, ACallThatCannotReachTheServiceIsARuntimeError)
{
    Answer("ACME", answers::Bytes(""));

    EXPECT_GT(ErrorOf({{"do", "call"}, {"op", "Quote"}, {"args", {"ACME"}}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "call"}, {"op", "Quote"}, {"args", {7}}}), 0);
}

}  // namespace
}  // namespace clb
