#include "quotes/UpdateQuotes.h"

#include "base/RuntimeError.h"
#include "data/clsDatabase.h"
#include "ports/IPointer.h"
#include "quotes/clsStockQuote.h"

namespace clb {
namespace {

void StoreLastPrices(clsDatabase& database, IQuoteHost& host, IHttpClient& http,
                     const std::string& service)
{
    Recordset holdings;
    database.Fill(holdings, "SELECT StockSymbol, LastPrice FROM Investment", false);
    clsStockQuote quote(http, service);
    // Leaving a changed row saves it. A price that is not a number is the database's to refuse: it
    // ends the command, and the rows before it stay saved.
    const auto whole = static_cast<std::size_t>(holdings.RecordCount());
    for (std::size_t part = 0; !holdings.AtEnd(); holdings.MoveNext(), ++part) {
        const std::string symbol = ToText(holdings.Get("StockSymbol"));
        host.QuoteProgress(part, whole, symbol);
        quote.Symbol(symbol);
        if (quote.Change() != "N/A")
            holdings.Set("LastPrice", quote.Quote());
    }
}

}  // namespace

void UpdateQuotes(clsDatabase& database, IQuoteHost& host, IMessageBox& messages, IHttpClient& http,
                  const std::string& service, const std::string& title)
{
    const std::string remembered = host.StatusText();
    host.StatusText("Updating quotes...");
    host.Repaint();
    host.Pointer(pointer::Hourglass);
    bool failed = false;
    try {
        StoreLastPrices(database, host, http, service);
    } catch (const RuntimeError&) {
        failed = true;
    }
    host.Pointer(pointer::Default);
    host.StatusText(remembered);
    if (failed)
        messages.Show("Unable to update quotes.", box_style::Exclamation, title);
}

}  // namespace clb
