// The command Update Quotes.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Money.h"
#include "ports/IMessageBox.h"

namespace clb {

class clsDatabase;
class IHttpClient;

/// A holding whose price has changed.
struct QuoteChange {
    std::string symbol;
    Money before;  ///< 0 if there was none
    Money now;
};

/// What an update has stored.
struct QuoteOutcome {
    std::size_t holdings = 0;  ///< all, changed or not
    std::vector<QuoteChange> changed;
};

/// The main window as the command uses it.
class IQuoteHost {
public:
    virtual ~IQuoteHost() = default;
    /// First panel of the status bar.
    [[nodiscard]] virtual std::string StatusText() const = 0;
    virtual void StatusText(const std::string& text) = 0;
    /// Draws what has changed at once, because the requests block.
    virtual void Repaint() = 0;
    virtual void Pointer(std::int32_t code) = 0;
    /// Called before the request for a symbol. `part` of `whole` symbols have been requested
    /// before.
    virtual void QuoteProgress(std::size_t part, std::size_t whole, const std::string& symbol) = 0;
};

/// Fetches a quote for each holding and stores its last price. Returns what has changed. A holding
/// without a valid quote keeps its price. A failure is reported to the user and ends the command:
/// the prices fetched before it are stored, and status text and pointer are restored.
QuoteOutcome UpdateQuotes(clsDatabase& database, IQuoteHost& host, IMessageBox& messages,
                          IHttpClient& http, const std::string& service, const std::string& title);

}  // namespace clb
