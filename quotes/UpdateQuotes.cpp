#include "quotes/UpdateQuotes.h"

#include <variant>
#include <vector>

#include "base/RuntimeError.h"
#include "data/clsDatabase.h"
#include "engine/storage/EngineError.h"
#include "ports/IPointer.h"
#include "quotes/clsStockQuote.h"

namespace clb {
namespace {

/// The price that was fetched for a row of the holdings.
struct FetchedPrice {
    std::size_t row = 0;
    std::string symbol;
    Money price;
};

/// The command from the first request to the last stored price. The requests may take long, so the
/// book is not locked until the last answer has come.
class Update {
public:
    /// outcome is borrowed, and filled while prices are stored.
    Update(clsDatabase& database, IQuoteHost& host, IHttpClient& http, const std::string& service,
           QuoteOutcome& outcome)
        : database_(database), host_(host), quote_(http, service), outcome_(outcome)
    {
        database_.Fill(holdings_, "SELECT StockSymbol, LastPrice FROM Investment", false);
        outcome_.holdings = static_cast<std::size_t>(holdings_.RecordCount());
    }

    /// Requests the price of every holding. Throws RuntimeError at the first failure. The prices
    /// fetched before it are kept.
    void Ask()
    {
        const auto whole = static_cast<std::size_t>(holdings_.RecordCount());
        for (std::size_t row = 0; row < whole; ++row)
            AskFor(row, whole);
    }
    /// Stores the fetched prices. Skips a holding that another program has meanwhile deleted or
    /// given another symbol.
    void Store()
    {
        if (fetched_.empty())
            return;
        database_.Lock();
        for (const FetchedPrice& answer : fetched_)
            if (IsStillThere(answer)) {
                const Value before = holdings_.At(answer.row, kLastPrice);
                holdings_.MoveTo(answer.row);
                holdings_.Set("LastPrice", answer.price);
                holdings_.Update();
                NoteChange(answer, before);
            }
    }

private:
    void AskFor(std::size_t row, std::size_t whole)
    {
        const std::string symbol = ToText(holdings_.At(row, kSymbol));
        host_.QuoteProgress(row, whole, symbol);
        quote_.Symbol(symbol);
        // A price that is not a number ends the command.
        if (quote_.Change() != "N/A")
            fetched_.push_back({row, symbol, ToMoney(quote_.Quote())});
    }
    void NoteChange(const FetchedPrice& answer, const Value& stored)
    {
        const auto* before = std::get_if<Money>(&stored);
        if (!before || *before != answer.price)
            outcome_.changed.push_back({answer.symbol, before ? *before : Money(), answer.price});
    }
    bool IsStillThere(const FetchedPrice& answer)
    {
        try {
            holdings_.Reread(answer.row);
            return ToText(holdings_.At(answer.row, kSymbol)) == answer.symbol;
        } catch (const EngineError& error) {
            if (error.Number() != engine_errors::RowVanished)
                throw;
            return false;
        }
    }

    static constexpr std::size_t kSymbol = 0;
    static constexpr std::size_t kLastPrice = 1;

    clsDatabase& database_;
    IQuoteHost& host_;
    clsStockQuote quote_;
    Recordset holdings_;
    std::vector<FetchedPrice> fetched_;
    QuoteOutcome& outcome_;
};

/// Returns whether every price was fetched and stored. Stores those fetched before a failure.
bool StoreLastPrices(clsDatabase& database, IQuoteHost& host, IHttpClient& http,
                     const std::string& service, QuoteOutcome& outcome)
{
    bool allFetched = true;
    try {
        Update update(database, host, http, service, outcome);
        try {
            update.Ask();
        } catch (const RuntimeError&) {
            allFetched = false;
        }
        update.Store();
    } catch (const RuntimeError&) {
        return false;
    }
    return allFetched;
}

}  // namespace

QuoteOutcome UpdateQuotes(clsDatabase& database, IQuoteHost& host, IMessageBox& messages,
                          IHttpClient& http, const std::string& service, const std::string& title)
{
    const std::string remembered = host.StatusText();
    host.StatusText("Updating quotes...");
    host.Repaint();
    host.Pointer(pointer::Hourglass);
    QuoteOutcome outcome;
    const bool done = StoreLastPrices(database, host, http, service, outcome);
    host.Pointer(pointer::Default);
    host.StatusText(remembered);
    if (!done)
        messages.Show("Unable to update quotes.", box_style::Exclamation, title);
    return outcome;
}

}  // namespace clb
