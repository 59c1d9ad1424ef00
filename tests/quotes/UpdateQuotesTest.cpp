#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <map>

#include "base/RuntimeError.h"
#include "ports/IHttpClient.h"
#include "quotes/UpdateQuotes.h"
#include "quotes/clsStockQuote.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

constexpr const char* kAcme =
    "\"ACME\",12.50,\"3/3/"
    "2006\",\"4:00pm\",+0.25,\"+2.04%\",12.30,12.60,12.20,12.49,12.51,1234567\r\n";

class FakeQuoteHost : public IQuoteHost {
public:
    [[nodiscard]] std::string StatusText() const override { return texts.back(); }
    void StatusText(const std::string& text) override { texts.push_back(text); }
    void Repaint() override { drawn.push_back(texts.back()); }
    void Pointer(std::int32_t code) override { pointers.push_back(code); }
    void QuoteProgress(std::size_t part, std::size_t whole, const std::string& symbol) override
    {
        asked.push_back(std::to_string(part) + "/" + std::to_string(whole) + " " + symbol);
    }

    std::vector<std::string> texts{"Ready"};
    std::vector<std::int32_t> pointers;
    std::vector<std::string> drawn;
    std::vector<std::string> asked;
};

class AnswersInTurn : public IHttpClient {
public:
    explicit AnswersInTurn(std::deque<std::string> answers) : answers_(std::move(answers)) {}
    std::optional<std::string> Get(const std::string&) override
    {
        const std::string answer = answers_.front();
        answers_.pop_front();
        return answer;
    }

private:
    std::deque<std::string> answers_;
};

class UpdateQuotesTest : public testing::Test {
protected:
    /// LastPrice of a holding with the price 7.25 after the command.
    std::string PriceAfter(std::optional<std::string> answer)
    {
        books_.Execute("INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('ACME', 7.25)");
        http_.answer = std::move(answer);
        Update();
        return books_.One("SELECT LastPrice FROM Investment");
    }
    void Update()
    {
        UpdateQuotes(books_.window.Data(), host_, books_.messages, http_, "http://q", "Title");
    }

    Books books_;
    FakeHttp http_;
    FakeQuoteHost host_;
};

TEST_F(UpdateQuotesTest, AValidAnswerSetsTheLastPrice)
{
    EXPECT_EQ(PriceAfter(kAcme), "12.5");
    EXPECT_EQ(
        http_.urls,
        (std::vector<std::string>{"http://q/d/quotes.csv?s=ACME&f=sl1d1t1c1p2ohgbav&e=.csv"}));
    EXPECT_EQ(host_.texts, (std::vector<std::string>{"Ready", "Updating quotes...", "Ready"}));
    EXPECT_EQ(host_.drawn, std::vector<std::string>{"Updating quotes..."});
    EXPECT_EQ(host_.pointers, (std::vector<std::int32_t>{11, 0}));
}

TEST_F(UpdateQuotesTest, AnUnknownSymbolKeepsItsPrice)
{
    EXPECT_EQ(PriceAfter("ACME,0.00,N/A,N/A,N/A,N/A,N/A,N/A,N/A,N/A,N/A,N/A"), "7.25");
}

TEST_F(UpdateQuotesTest, ElevenFieldsKeepThePrice)
{
    EXPECT_EQ(PriceAfter("ACME,1,2,3,4,5,6,7,8,9,10"), "7.25");
}

TEST_F(UpdateQuotesTest, AnEmptyAnswerKeepsThePrice)
{
    EXPECT_EQ(PriceAfter(""), "7.25");
    EXPECT_TRUE(books_.messages.boxes.empty());
}

TEST_F(UpdateQuotesTest, AQuotedChangeThatIsNotAvailableKeepsThePrice)
{
    EXPECT_EQ(PriceAfter("\"ACME\",0.00,2,3,\"N/A\",5,6,7,8,9,10,11\r\n"), "7.25");
    EXPECT_TRUE(books_.messages.boxes.empty());
}

TEST_F(UpdateQuotesTest, TheHoldingAfterOneWithoutAQuoteGetsItsPrice)
{
    for (const char* symbol : {"ACME", "BOLT", "CORK"})
        books_.Execute("INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('" +
                       std::string(symbol) + "', 1)");
    AnswersInTurn http({"", "ACME,1,2,3,4,5,6,7,8,9,10", kAcme});

    UpdateQuotes(books_.window.Data(), host_, books_.messages, http, "http://q", "Title");

    EXPECT_TRUE(books_.messages.boxes.empty());
    EXPECT_EQ(books_.Rows("SELECT LastPrice FROM Investment ORDER BY LastPrice"),
              (std::vector<std::string>{"1", "1", "12.5"}));
}

TEST_F(UpdateQuotesTest, QuotesAroundFieldsDoNotCount)
{
    EXPECT_EQ(PriceAfter("\"ACME\",\"12.50\",2,3,\"+0.25\",5,6,7,8,9,10,11"), "12.5");
}

TEST_F(UpdateQuotesTest, MoreThanTwelveFieldsAreAQuote)
{
    EXPECT_EQ(PriceAfter("ACME,12.50,2,3,4,5,6,7,8,9,10,11,12,13"), "12.5");
}

/// Symptom: such a price was skipped without a message.
TEST_F(UpdateQuotesTest, APriceThatIsNotAnAmountIsReportedAndKeepsThePrice)
{
    // The price is the field after the first comma, even if quotes are around the comma.
    for (const char* price : {"soon", "", "N/A", "1e300", " Inc.\",12.50"}) {
        SCOPED_TRACE(price);
        books_.Execute("DELETE FROM Investment");
        books_.messages.boxes.clear();

        EXPECT_EQ(PriceAfter("ACME," + std::string(price) + ",2,3,4,5,6,7,8,9,10,11"), "7.25");

        EXPECT_EQ(books_.messages.boxes,
                  (std::vector<FakeMessageBox::Box>{{"Unable to update quotes.", 48, "Title"}}));
        EXPECT_EQ(host_.texts.back(), "Ready");
        EXPECT_EQ(host_.pointers.back(), 0);
    }
}

TEST_F(UpdateQuotesTest, ThePricesBeforeOneThatIsNotANumberStay)
{
    for (const char* symbol : {"ACME", "BOLT", "CORK"})
        books_.Execute("INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('" +
                       std::string(symbol) + "', 1)");
    AnswersInTurn http({kAcme, "BOLT,soon,2,3,4,5,6,7,8,9,10,11", kAcme});

    UpdateQuotes(books_.window.Data(), host_, books_.messages, http, "http://q", "Title");

    EXPECT_EQ(books_.messages.boxes,
              (std::vector<FakeMessageBox::Box>{{"Unable to update quotes.", 48, "Title"}}));
    EXPECT_EQ(books_.Rows("SELECT StockSymbol, LastPrice FROM Investment ORDER BY StockSymbol"),
              (std::vector<std::string>{"ACME|12.5", "BOLT|1", "CORK|1"}));
}

TEST_F(UpdateQuotesTest, ASymbolWithoutAValidAddressKeepsThePrice)
{
    EXPECT_EQ(PriceAfter(std::nullopt), "7.25");
    EXPECT_TRUE(books_.messages.boxes.empty());
}

TEST_F(UpdateQuotesTest, AFailedRequestIsReportedAndTextAndPointerAreRestored)
{
    http_.fails = true;

    EXPECT_EQ(PriceAfter(std::nullopt), "7.25");

    EXPECT_EQ(books_.messages.boxes,
              (std::vector<FakeMessageBox::Box>{{"Unable to update quotes.", 48, "Title"}}));
    EXPECT_EQ(host_.texts.back(), "Ready");
    EXPECT_EQ(host_.pointers.back(), 0);
}

TEST_F(UpdateQuotesTest, EachHoldingIsReportedBeforeItsRequest)
{
    books_.Execute("INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('BOLT', 1)");

    PriceAfter(kAcme);

    EXPECT_EQ(host_.asked, (std::vector<std::string>{"0/2 BOLT", "1/2 ACME"}));
}

TEST_F(UpdateQuotesTest, TheOutcomeListsThePricesThatChanged)
{
    for (const char* holding : {"('ACME', 7.25)", "('BOLT', 12.50)", "('COAL', NULL)"})
        books_.Execute("INSERT INTO Investment (StockSymbol, LastPrice) VALUES " +
                       std::string(holding));
    http_.answer = kAcme;

    const QuoteOutcome outcome =
        UpdateQuotes(books_.window.Data(), host_, books_.messages, http_, "http://q", "Title");

    EXPECT_EQ(outcome.holdings, 3U);
    std::vector<std::string> changed;
    for (const QuoteChange& change : outcome.changed)
        changed.push_back(change.symbol + " " + change.before.ToText() + " " + change.now.ToText());
    EXPECT_THAT(changed, testing::UnorderedElementsAre("ACME 7.25 12.5", "COAL 0 12.5"));
}

TEST_F(UpdateQuotesTest, WithoutHoldingsNothingIsRequested)
{
    Update();

    EXPECT_TRUE(http_.urls.empty());
}

TEST(clsStockQuoteTest, FieldsLoseTheirQuotesAndTheVolumeIsGrouped)
{
    FakeHttp http;
    http.answer = kAcme;
    clsStockQuote quote(http, "http://q");

    quote.Symbol("acme");

    EXPECT_EQ(quote.Symbol(), "ACME");
    EXPECT_EQ(quote.PercentageChange(), "+2.04%");
    EXPECT_EQ(quote.Volume(), "1,234,567");
}

/// Symptom: a volume that is too large for a number ended the whole update with an overflow.
TEST(clsStockQuoteTest, AVolumeIsGroupedIfItIsANumber)
{
    for (const auto& [field, volume] : {std::pair("-2e18", "-2,000,000,000,000,000,000"),
                                        std::pair("1e400", "1e400"), std::pair("\"N/A\"", "N/A")}) {
        FakeHttp http;
        http.answer = "ACME,45.50,6/1/2006,4:00pm,+0.91,+2.04%,44.60,45.75,44.50,45.49,45.51," +
                      std::string(field);
        clsStockQuote quote(http, "http://q");

        quote.Symbol("ACME");

        EXPECT_EQ(quote.Volume(), volume);
        EXPECT_EQ(quote.Quote(), "45.50");
    }
}

}  // namespace
}  // namespace clb
